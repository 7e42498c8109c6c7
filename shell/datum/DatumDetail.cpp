#include "shell/datum/DatumDetail.h"

#include <cmath>

namespace KvRefSystem::DatumDetail {

std::string ReadText(TKvXIniReader* reader, char const* key) {
    return reader->Read<std::string>(reader->FindF(key, 0), std::string());
}

int ReadInt(TKvXIniReader* reader, char const* key, int fallback) {
    return reader->Read<int>(reader->FindF(key, 0), fallback);
}

bool WriteUnitSection(TKvXIniWriter* writer, char const* key, TShellUnit const* unit) {
    if (unit == nullptr) {
        return false;
    }
    unsigned long const handle = writer->BeginSection(key);
    if (handle == 0) {
        return false;
    }
    // The section is closed after a failed write too, so that the caller's own section is the current one again.
    bool const written = unit->SaveToXML(writer);
    return writer->EndSection(handle) && written;
}

double RoundToEightPlaces(double value) {
    return std::floor(value * 1e8 + 0.5) * 1e-8;
}

} // namespace KvRefSystem::DatumDetail
