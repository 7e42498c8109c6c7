#include "tools/accuracy/road/Systems.h"

#include "tools/accuracy/Domain.h"
#include "tools/accuracy/TextFile.h"
#include "tools/accuracy/road/Folders.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace VellariAccuracy {

namespace {

using KvRefSystem::FormatText;

/** The text form of a description, line by line. */
class TDescription {
public:
    explicit TDescription(std::string const& name) {
        Lines.push_back("(0,0)" + name);
        Field(1020, name);
        Field(1021, "");
    }

    void Field(int tag, std::string const& value, int index = 0) {
        Lines.push_back(std::string(Depth, '\t') + FormatText("(%d,%d)[1]field\t", tag, index) + value);
    }

    void Fields(TParameters const& parameters) {
        for (auto const& [tag, value] : parameters) {
            Field(tag, value);
        }
    }

    void Open(int tag) { Lines.push_back(std::string(++Depth, '\t') + FormatText("(%d,0)subtree", tag)); }

    void Close() { Lines.emplace_back(Depth--, '\t'); }

    /** A whole description as a subtree: its first line gives way to the tag's. */
    void Embed(int tag, std::string const& text) {
        Open(tag);
        std::size_t start = text.find('\n') + 1;
        for (std::size_t end = text.find('\n', start); end != std::string::npos;
             end = text.find('\n', start)) {
            std::string const line = text.substr(start, end - start);
            start = end + 1;
            Lines.push_back(std::string(Depth, '\t') + line);
            if (line.empty()) {
                break; // closes the subtree
            }
        }
        --Depth;
    }

    /** @param type 1 length, 2 angle, 3 scale. */
    void Unit(int tag, int type, std::string const& numerator, std::string const& denominator) {
        Open(tag);
        Fields({{5301, "0"},
                {5312, FormatText("%d", type)},
                {5310, numerator},
                {5311, denominator},
                {5320, "unit"},
                {5321, "u"},
                {5322, ""}});
        Close();
    }

    TSystem Build() const {
        std::string text;
        for (std::string const& line : Lines) {
            text += line + '\n';
        }
        TSystem system(KvRefSystem::CreateShellReferenceSystem(text + '\n', nullptr));
        if (!system) {
            throw std::runtime_error("the library refuses this description:\n" + text);
        }
        return system;
    }

private:
    std::vector<std::string> Lines;
    std::size_t Depth = 0;
};

std::string CatalogText(std::string const& name) {
    return ReadTextFile(std::string(CatalogFolder) + "/" + name + ".txt");
}

std::string TextOf(double number) {
    return FormatText("%.17g", number);
}

} // namespace

TSystem FromCatalog(std::string const& name) {
    TSystem system(KvRefSystem::CreateShellReferenceSystem(CatalogText(name), nullptr));
    if (!system) {
        throw std::runtime_error(name + ": the library refuses this entry of the catalogue");
    }
    return system;
}

TSystem Grid(std::string const& base, int method, TParameters const& parameters) {
    TDescription description(FormatText("method %d", method));
    description.Field(1100, "5");
    description.Unit(1104, 1, "1", "1");
    description.Embed(1121, CatalogText(base));
    description.Open(1300);
    description.Fields({{6001, FormatText("%d", method)}, {1400, "0"}});
    description.Field(1401, "1", 0);
    description.Field(1401, "1", 1);
    description.Fields(parameters);
    description.Unit(6090, 2, "3.14159265358979312", "180");
    description.Unit(6091, 1, "1", "1");
    description.Unit(6092, 3, "1", "1");
    description.Close();
    return description.Build();
}

TSystem Local(TLocal const& local) {
    TDescription description("local");
    description.Field(1100, local.Radius == 0 ? "1" : "2");
    description.Field(1400, local.LeftHanded ? "1" : "0");
    if (local.Radius != 0) {
        description.Field(1120, TextOf(local.CentreX), 0);
        description.Field(1120, TextOf(local.CentreY), 1);
        description.Open(1103);
        std::string const radius = TextOf(local.Radius);
        description.Fields(
            {{5120, "sphere"}, {5121, ""}, {5110, radius}, {5111, radius}, {5114, "0"}, {5115, "1"}});
        description.Unit(5113, 1, "1", "1");
        description.Close();
    }
    description.Unit(1104, 1, TextOf(local.UnitSize), "1");
    return description.Build();
}

TTriple Moved(TSystem const& source, TTriple const& point, TSystem const& target) {
    constexpr double None = std::numeric_limits<double>::quiet_NaN();
    TTriple out = {None, None, None};
    KvRefSystem::TransformCoords(source.get(), point[0], point[1], point[2], target.get(), &out[0], &out[1],
                                 &out[2]);
    return out;
}

TApart ApartBy(TTriple const& first, TTriple const& second, double radius) {
    TPair const from = {first[1] * Degree, first[0] * Degree};
    TPair const to = {second[1] * Degree, second[0] * Degree};
    return {GroundDistance(from, to, radius), std::fabs(second[2] - first[2])};
}

} // namespace VellariAccuracy
