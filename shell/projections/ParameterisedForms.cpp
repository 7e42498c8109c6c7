#include "frame/NumberText.h"
#include "frame/XmlSectionsDetail.h"
#include "shell/projections/ParameterFactsDetail.h"
#include "shell/projections/ParameterTextDetail.h"
#include "shell/projections/ReportFailureDetail.h"

#include <stdexcept>

namespace KvRefSystem::ParameterFacts {

namespace {

constexpr double HalfPi = 1.5707963267948966;
constexpr double RightAngleDegrees = 90.0;
constexpr char const* XmlSection = "MapProjParameters";

/** @return the pole of a capital letter, or 0. */
TPole PoleOfLetter(char letter) {
    return letter == 'N' ? poleNorth : letter == 'S' ? poleSouth : TPole(0);
}

char ToCapital(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

char FirstLetter(std::string const& text) {
    return text.empty() ? '\0' : text.front();
}

/** @return 1 for the north pole, -1 for the south one, 0 for none. */
int SignOf(TPole pole) {
    return pole == poleNorth ? 1 : pole == poleSouth ? -1 : 0;
}

TField const& FieldOf(TProjectionFacts const& facts, int key) {
    for (TField const& field : Filled(facts.Fields)) {
        if (field.Key == key) {
            return field;
        }
    }
    throw std::logic_error("a map projection without the parameter");
}

std::string const& TextOf(TProjectionFacts const& facts, TShellMapProjection const& shell, int key) {
    return FieldOf(facts, key).Text.Read(shell);
}

/** @return the kind of unit that a value has; that of a latitude for the poles. */
TShellUnitType KindOf(int key) {
    return key == NorthPole || key == Tag::Pole ? utAngular : MeaningOf(key).Unit;
}

TShellUnit const* UnitOf(TShellMapProjection const& shell, int key) {
    switch (KindOf(key)) {
    case utAngular:
        return shell.AngularUnit;
    case utLinear:
        return shell.LinearUnit;
    case utScale:
        return shell.ScaleUnit;
    default:
        return nullptr;
    }
}

/** @return 1 or -1 for the pole that a latitude is at; 0 for one of a parameter. */
int PoleSignOf(TProjectionFacts const& facts, TShellMapProjection const& shell, int key) {
    if (key == NorthPole) {
        return 1;
    }
    if (key != Tag::Pole) {
        return 0;
    }
    int const sign = SignOf(facts.Pole.Read(shell));
    if (sign == 0) {
        throw TUnusableProjection();
    }
    return sign;
}

/** @return radians, metres or the plain factor. */
double BaseValue(TProjectionFacts const& facts, TShellMapProjection const& shell, int key) {
    if (int const sign = PoleSignOf(facts, shell, key)) {
        return sign * HalfPi;
    }
    return ParameterText::ToBase(UnitOf(shell, key), TextOf(facts, shell, key));
}

/** @return degrees, metres or the plain factor. */
double PlainValue(TProjectionFacts const& facts, TShellMapProjection const& shell, int key) {
    if (int const sign = PoleSignOf(facts, shell, key)) {
        return sign * RightAngleDegrees;
    }
    double const value = BaseValue(facts, shell, key);
    return KindOf(key) == utAngular ? ParameterText::ToDegrees(value) : value;
}

std::string MifText(TProjectionFacts const& facts, TShellMapProjection const& shell, TMifNumber const& number,
                    TShellLinearUnit const* outputUnit) {
    double const value = PlainValue(facts, shell, number.Key);
    switch (KindOf(number.Key)) {
    case utLinear:
        return ParameterText::LengthText(outputUnit, value);
    case utAngular:
        return FormatText("%.*lg", number.Digits, ParameterText::RoundDegrees(value, facts.MifRounding));
    default:
        return FormatText("%.*lg", number.Digits, value);
    }
}

std::string GeoText(TProjectionFacts const& facts, TShellMapProjection const& shell, int key,
                    TShellAngularUnit const* angularUnit, TShellLinearUnit const* linearUnit) {
    if (int const sign = PoleSignOf(facts, shell, key)) {
        if (!angularUnit) {
            throw TUnusableProjection();
        }
        double const latitude = ParameterText::ToRadians(sign * RightAngleDegrees);
        return angularUnit->ValueToString(latitude * angularUnit->CoefFromBase, -1);
    }
    std::string const& text = TextOf(facts, shell, key);
    switch (KindOf(key)) {
    case utLinear:
        return ParameterText::InUnit(shell.LinearUnit, text, linearUnit);
    case utAngular:
        return ParameterText::InUnit(shell.AngularUnit, text, angularUnit);
    default:
        return FormatText("%.*lg", facts.GeoScaleDigits, ParameterText::ToBase(shell.ScaleUnit, text));
    }
}

/** The text of a constructor's failure: its own signature. */
std::string ConstructorText(TProjectionFacts const& facts, char const* parameter) {
    std::string const name = facts.ClassName;
    return name + "::" + name + "(" + parameter + ")";
}

std::string PoleText(TProjectionFacts const& facts, TPole pole) {
    int const sign = SignOf(pole);
    if (sign == 0) {
        throw std::logic_error(std::string("bool ") + facts.ClassName +
                               "::SaveToXML(TKvXIniWriter *XML_writer) const");
    }
    return sign > 0 ? "North" : "South";
}

} // namespace

TMapProjection* CreateCore(TProjectionFacts const& facts, TShellMapProjection const& shell,
                           TEllipsoidSemiAxes const* semiAxes) {
    if (!semiAxes && facts.NeedsEllipsoid) {
        return nullptr;
    }
    try {
        TRows<double> values = {};
        std::size_t count = 0;
        for (int const key : Filled(facts.Record)) {
            if (key != Tag::Pole) {
                values[count++] = BaseValue(facts, shell, key);
            }
        }
        TPole const pole = facts.Pole.Exists ? facts.Pole.Read(shell) : TPole(0);
        return facts.Build.Run(semiAxes, pole, values).release();
    } catch (...) {
        return nullptr;
    }
}

bool SameParameters(TProjectionFacts const& facts, TShellMapProjection const& one,
                    TShellMapProjection const& other) {
    for (TField const& field : Filled(facts.Fields)) {
        bool const isSame = field.Key == Tag::Pole ? facts.Pole.Read(one) == facts.Pole.Read(other)
                                                   : field.Text.Read(one) == field.Text.Read(other);
        if (!isSame) {
            return false;
        }
    }
    return true;
}

void ReadTree(TProjectionFacts const& facts, TShellMapProjection* shell, TStringTree* tree) {
    for (TField const& field : Filled(facts.Fields)) {
        if (!field.InTree) {
            continue;
        }
        std::string text;
        bool isRead = tree->GetString(field.Key, 0, &text);
        if (field.Key == Tag::Pole) {
            facts.Pole.Write(*shell) = PoleOfLetter(FirstLetter(text));
            isRead = isRead && facts.Pole.Read(*shell) != 0;
        } else {
            field.Text.Write(*shell) = std::move(text);
        }
        if (!isRead) {
            throw std::runtime_error(ConstructorText(facts, "TStringTree *tree"));
        }
    }
}

void ThrowXmlFailure(TProjectionFacts const& facts) {
    throw std::runtime_error(ConstructorText(facts, "TKvXIniReader *xml"));
}

bool ReadXml(TProjectionFacts const& facts, TShellMapProjection* shell, TKvXIniReader* reader) {
    std::span<TNamed const> const items = Filled(facts.XmlRead);
    TRows<std::string> texts;
    TPole pole = facts.Pole.Exists ? facts.Pole.Read(*shell) : TPole(0);
    TXmlReadSection section(reader, XmlSection);
    if (!section) {
        return false;
    }
    for (std::size_t index = 0; index < items.size(); ++index) {
        texts[index] = ReadXmlText(reader, items[index].Name);
        if (items[index].Key == Tag::Pole && !texts[index].empty()) {
            pole = PoleOfLetter(ToCapital(FirstLetter(texts[index])));
            if (pole == 0) {
                return false;
            }
        }
    }
    if (!section.Leave()) {
        return false;
    }
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (items[index].Key == Tag::Pole) {
            facts.Pole.Write(*shell) = pole;
        } else {
            FieldOf(facts, items[index].Key).Text.Write(*shell) = std::move(texts[index]);
        }
    }
    return true;
}

bool WriteXml(TProjectionFacts const& facts, TShellMapProjection const& shell, TKvXIniWriter* writer) {
    bool const isOwn = !Filled(facts.XmlWritten).empty();
    return WriteXmlSection(writer, XmlSection, [&] {
        for (TNamed const& item : Filled(isOwn ? facts.XmlWritten : facts.XmlRead)) {
            std::string const text = item.Key == Tag::Pole ? PoleText(facts, facts.Pole.Read(shell))
                                                           : TextOf(facts, shell, item.Key);
            if (!writer->WriteS<std::string>(item.Name, text)) {
                return false;
            }
        }
        return true;
    });
}

void ClearTexts(TProjectionFacts const& facts, TShellMapProjection* shell) {
    for (TField const& field : Filled(facts.Fields)) {
        if (field.Text.Exists) {
            field.Text.Write(*shell).clear();
        }
    }
}

bool WktName(TProjectionFacts const& facts, std::string* text) {
    if (!facts.WktName) {
        return false;
    }
    *text = facts.WktName;
    return true;
}

bool WktParameters(TProjectionFacts const& facts, TShellMapProjection const& shell, std::string* text) {
    if (!facts.WktName) {
        return false;
    }
    return ReportFailure([&] {
        ParameterText::TWktParameters list;
        for (TNamed const& parameter : Filled(facts.Wkt)) {
            list.Add(parameter.Name, PlainValue(facts, shell, parameter.Key));
        }
        *text = std::move(list.Text);
        return true;
    });
}

bool MifClause(TProjectionFacts const& facts, TShellMapProjection const& shell,
               TShellLinearUnit const* outputUnit, std::string* text) {
    if (Filled(facts.Mif).empty()) {
        return false;
    }
    return ReportFailure([&] {
        std::string clause;
        for (TMifNumber const& number : Filled(facts.Mif)) {
            clause += ", " + MifText(facts, shell, number, outputUnit);
        }
        *text += clause;
        return true;
    });
}

bool GeoKeys(TProjectionFacts const& facts, TShellMapProjection const& shell,
             TShellAngularUnit const* angularUnit, TShellLinearUnit const* linearUnit,
             std::map<int, std::string>* keys) {
    if (Filled(facts.Geo).empty()) {
        return false;
    }
    return ReportFailure([&] {
        std::map<int, std::string> found;
        for (TGeoNumber const& number : Filled(facts.Geo)) {
            found.emplace(number.GeoKey, GeoText(facts, shell, number.Key, angularUnit, linearUnit));
        }
        keys->merge(found);
        return true;
    });
}

} // namespace KvRefSystem::ParameterFacts
