#include "frame/XmlSectionsDetail.h"
#include "shell/refsystems/ReferenceSystem.h"

#include <memory>

namespace KvRefSystem {

namespace {

/** A text of the base and its key, in the order of writing. */
struct TTextKey {
    char const* key;
    std::string TShellReferenceSystem::*member;
};

constexpr TTextKey CodeKeys[] = {
    {"RefSystemGeoTIFFCode", &TShellReferenceSystem::GeoTIFFCode},
    {"RefSystemGeoTIFFType", &TShellReferenceSystem::GeoTIFFType},
    {"RefSystemPanoramaCode", &TShellReferenceSystem::PanoramaCode},
};

constexpr TTextKey DatumKeys[] = {
    {"RefSystemDatumName", &TShellReferenceSystem::DatumName},
    {"RefSystemDatumGeoTIFFCode", &TShellReferenceSystem::DatumGeoTIFFCode},
};

constexpr char const* AxisKeys[3] = {"RefSystemAxisName1", "RefSystemAxisName2", "RefSystemAxisName3"};

template <std::size_t Count>
bool WriteTexts(TKvXIniWriter* writer, TShellReferenceSystem const& system, TTextKey const (&rows)[Count]) {
    for (TTextKey const& row : rows) {
        if (!LumCommonUtils::WriteNotEmptyString(writer, row.key, system.*row.member)) {
            return false;
        }
    }
    return true;
}

template <std::size_t Count>
void ReadTexts(TKvXIniReader* reader, TShellReferenceSystem* system, TTextKey const (&rows)[Count]) {
    for (TTextKey const& row : rows) {
        system->*row.member = ReadXmlText(reader, row.key);
    }
}

/** Enters and leaves a section that is reserved and holds nothing that is read. */
bool PassSection(TKvXIniReader* reader, char const* key) {
    TXmlReadSection section(reader, key);
    return section.Leave();
}

bool ReadDatumShift(TKvXIniReader* reader, TShellReferenceSystem* system) {
    TXmlReadSection section(reader, "RefSystemDatumShift");
    if (!section) {
        return false;
    }
    system->DatumShift = CreateShellDatumShift(reader);
    return section.Leave() && system->DatumShift;
}

bool ReadEllipsoid(TKvXIniReader* reader, TShellReferenceSystem* system, bool required) {
    TXmlReadSection section(reader, "RefSystemEllipsoid");
    if (!section) {
        return !required;
    }
    system->Ellipsoid = new TShellEllipsoid(reader);
    return section.Leave();
}

bool ReadDatum(TKvXIniReader* reader, TShellReferenceSystem* system) {
    TXmlReadSection section(reader, "RefSystemDatum");
    if (!section) {
        return ReadEllipsoid(reader, system, false);
    }
    ReadTexts(reader, system, DatumKeys);
    return ReadDatumShift(reader, system) && ReadEllipsoid(reader, system, true) && section.Leave();
}

bool ReadPrimeMeridian(TKvXIniReader* reader, TShellReferenceSystem* system) {
    TXmlReadSection section(reader, "RefSystemPrimeMeridian");
    if (!section) {
        return true;
    }
    system->PrimeMeridian = new TShellPrimeMeridian(reader);
    return section.Leave();
}

bool ReadBase(TKvXIniReader* reader, TShellReferenceSystem* system) {
    int const type = ReadXmlInt(reader, "RefSystemType", 0);
    if (type < rstLocalCartesian || type > rstTopocentricHorizontal) {
        return false;
    }
    system->Type = static_cast<TReferenceSystemType>(type);
    system->Name = ReadXmlText(reader, "RefSystemName");
    system->Description = ReadXmlText(reader, "RefSystemDescription");
    system->Abbreviation = ReadXmlText(reader, "RefSystemAbbreviation");
    for (int axis = 0; axis < 3; ++axis) {
        system->AxisName[axis] = ReadXmlText(reader, AxisKeys[axis]);
    }
    ReadTexts(reader, system, CodeKeys);
    return ReadDatum(reader, system) && ReadPrimeMeridian(reader, system) &&
           PassSection(reader, "RefSystemHeightSystem") && PassSection(reader, "RefSystemTransform");
}

bool WriteDatum(TKvXIniWriter* writer, TShellReferenceSystem const& system) {
    auto const writeEllipsoid = [&] {
        return system.Ellipsoid && WriteXmlSection(writer, "RefSystemEllipsoid",
                                                   [&] { return system.Ellipsoid->SaveToXML(writer); });
    };
    if (!system.DatumShift) {
        return !system.Ellipsoid || writeEllipsoid();
    }
    return WriteXmlSection(writer, "RefSystemDatum", [&] {
        return WriteTexts(writer, system, DatumKeys) && writeEllipsoid() &&
               WriteXmlSection(writer, "RefSystemDatumShift",
                               [&] { return system.DatumShift->SaveToXML(writer); });
    });
}

} // namespace

bool TShellReferenceSystem::LoadFromXML(TKvXIniReader* reader) {
    Reset();
    bool loaded = false;
    try {
        loaded = reader && ReadBase(reader, this);
    } catch (...) {
        loaded = false;
    }
    if (!loaded) {
        Reset();
    }
    return loaded;
}

bool TShellReferenceSystem::SaveToXML(TKvXIniWriter* writer) const {
    using LumCommonUtils::WriteNotEmptyString;
    if (!writer || !writer->WriteS<int>("RefSystemType", Type) ||
        !writer->WriteS<std::string>("RefSystemName", Name) ||
        !WriteNotEmptyString(writer, "RefSystemDescription", Description) ||
        !WriteNotEmptyString(writer, "RefSystemAbbreviation", Abbreviation)) {
        return false;
    }
    for (int axis = 0; axis < 3; ++axis) {
        if (!WriteNotEmptyString(writer, AxisKeys[axis], AxisName[axis])) {
            return false;
        }
    }
    if (!WriteTexts(writer, *this, CodeKeys) || !WriteDatum(writer, *this)) {
        return false;
    }
    if (PrimeMeridian && !WriteXmlSection(writer, "RefSystemPrimeMeridian",
                                          [&] { return PrimeMeridian->SaveToXML(writer); })) {
        return false;
    }
    // Always empty: chains exist in the description tree only.
    return !Transform || WriteXmlSection(writer, "RefSystemTransform", [] { return true; });
}

} // namespace KvRefSystem
