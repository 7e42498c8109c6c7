#include "tests/catalog/Register.h"

#include "frame/NumberText.h"

#include <cstdio>
#include <regex>
#include <stdexcept>

namespace VellariTest {

namespace {

constexpr double arcSecond = 3.141592653589793 / 648000.0;
constexpr double partPerMillion = 1e-6;

std::string askRegister(std::string const& arguments) {
    std::string const command = "projinfo " + arguments + " -o WKT2:2019 --single-line -q";
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        throw std::runtime_error("cannot run: " + command);
    }
    std::string answer;
    char buffer[4096];
    for (std::size_t got = 0; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
        answer.append(buffer, got);
    }
    if (pclose(pipe) != 0 || answer.empty()) {
        throw std::runtime_error("no answer (projinfo is in Debian's proj-bin): " + command);
    }
    return answer;
}

std::smatch find(std::string const& text, char const* pattern) {
    std::smatch match;
    if (!std::regex_search(text, match, std::regex(pattern))) {
        throw std::runtime_error(std::string("no ") + pattern + " in " + text);
    }
    return match;
}

double number(std::string const& text) {
    double value = 0;
    if (!KvRefSystem::ParseWholeDouble(text, &value)) {
        throw std::runtime_error("not a number: " + text);
    }
    return value;
}

} // namespace

TRegisterOperation ReadRegisterOperation(int code) {
    std::string const text = askRegister("-k operation EPSG:" + KvRefSystem::FormatText("%d", code));
    TRegisterOperation operation;
    operation.Name = find(text, R"re(^COORDINATEOPERATION\["([^"]*)")re")[1];
    operation.Method =
        static_cast<int>(number(find(text, R"re(METHOD\["[^"]*",ID\["EPSG",([0-9]+)\]\])re")[1]));
    operation.Accuracy = number(find(text, R"re(OPERATIONACCURACY\[([^\]]*)\])re")[1]);

    // The parameters' codes are 8605 to 8611 in the order of the record, whatever their units.
    std::regex const pattern(
        R"re(PARAMETER\["[^"]*",([^,]*),[A-Z]+UNIT\["[^"]*",([^\]]*)\],ID\["EPSG",(86[01][0-9])\]\])re");
    int found = 0;
    for (std::sregex_iterator at(text.begin(), text.end(), pattern); at != std::sregex_iterator(); ++at) {
        int const index = static_cast<int>(number((*at)[3])) - 8605;
        if (index < 0 || index > 6) {
            continue;
        }
        double const unit = index < 3 ? 1.0 : index < 6 ? arcSecond : partPerMillion;
        operation.Parameters[static_cast<std::size_t>(index)] = number((*at)[1]) * (number((*at)[2]) / unit);
        ++found;
    }
    if (found != 3 && found != 7) {
        throw std::runtime_error("neither three nor seven parameters in " + text);
    }
    return operation;
}

TRegisterSystem ReadRegisterSystem(int code) {
    std::string const text = askRegister("EPSG:" + KvRefSystem::FormatText("%d", code));
    TRegisterSystem system;
    std::smatch const ellipsoid =
        find(text, R"re(ELLIPSOID\["([^"]*)",([^,]*),([^,]*),LENGTHUNIT\["metre",1\])re");
    system.EllipsoidName = ellipsoid[1];
    system.SemiMajorAxis = number(ellipsoid[2]);
    system.InverseFlattening = number(ellipsoid[3]);
    std::smatch const meridian = find(text, R"re(PRIMEM\["([^"]*)",([^,]*),ANGLEUNIT\["[^"]*",([^\]]*)\])re");
    system.MeridianName = meridian[1];
    system.MeridianLongitude = number(meridian[2]) * number(meridian[3]);
    system.AngularUnit = number(find(text, R"re(AXIS\[[^\]]*\],ANGLEUNIT\["[^"]*",([^\]]*)\])re")[1]);
    std::smatch ensemble;
    if (std::regex_search(text, ensemble, std::regex(R"re(ENSEMBLEACCURACY\[([^\]]*)\])re"))) {
        system.EnsembleAccuracy = number(ensemble[1]);
    }
    return system;
}

TRegisterGrid ReadRegisterGrid(int code) {
    std::string const text = askRegister("EPSG:" + KvRefSystem::FormatText("%d", code));
    TRegisterGrid grid;
    std::smatch const names = find(text, R"re(^PROJCRS\["([^"]*)",BASEGEOGCRS\["([^"]*)",)re");
    grid.Name = names[1];
    grid.BaseName = names[2];
    grid.Base = static_cast<int>(number(find(text, R"re(,ID\["EPSG",([0-9]+)\]\],CONVERSION\[)re")[1]));
    std::smatch const method = find(text, R"re(METHOD\["([^"]*)",ID\["EPSG",([0-9]+)\]\])re");
    grid.MethodName = method[1];
    grid.Method = static_cast<int>(number(method[2]));

    std::regex const parameter(R"re(PARAMETER\["([^"]*)",([^,]*),([A-Z]+)\["[^"]*",([^\]]*)\])re");
    for (std::sregex_iterator at(text.begin(), text.end(), parameter); at != std::sregex_iterator(); ++at) {
        grid.Parameters.push_back({(*at)[1], (*at)[3], number((*at)[2]) * number((*at)[4])});
    }
    // Polar axes all point to the pole or away from it; eastings run along the meridians of 90 degrees.
    std::regex const axis(R"re(AXIS\["[^"]*",([a-z]+)(,MERIDIAN\[(-?90)?)?)re");
    for (std::sregex_iterator at(text.begin(), text.end(), axis); at != std::sregex_iterator(); ++at) {
        bool const polar = (*at)[2].matched;
        grid.Axes.push_back(!polar ? std::string((*at)[1]) : (*at)[3].matched ? "east" : "north");
    }
    return grid;
}

std::string ReadRegisterName(std::string const& kind, std::string const& code) {
    std::string const text = askRegister("-k " + kind + " EPSG:" + code);
    return find(text, R"re((?:DATUM|ELLIPSOID)\["([^"]*)")re")[1];
}

} // namespace VellariTest
