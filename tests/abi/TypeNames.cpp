#include "tests/abi/TypeNames.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <stdexcept>

namespace Abi {
namespace {

/** Template arguments that stand where nobody writes them. */
constexpr std::array<std::string_view, 4> DefaultArguments = {"allocator<", "less<", "char_traits<",
                                                              "default_delete<"};

struct TSpelledTwice {
    std::string_view compiler;
    std::string_view people;
};

/** Fundamental types that compilers name in words which nobody writes. */
constexpr std::array<TSpelledTwice, 4> SpelledTwice = {{
    {"long int", "long"},
    {"long unsigned int", "unsigned long"},
    {"unsigned long int", "unsigned long"},
    {"unsigned", "unsigned int"},
}};

std::string AsPeopleWrite(std::string_view name) {
    for (TSpelledTwice const& spelling : SpelledTwice) {
        if (spelling.compiler == name) {
            return std::string(spelling.people);
        }
    }
    return std::string(name);
}

bool IsDefault(std::string const& argument) {
    return std::any_of(DefaultArguments.begin(), DefaultArguments.end(),
                       [&](std::string_view start) { return argument.starts_with(start); });
}

/** Walks once through a spelling. */
class TSpelling {
public:
    explicit TSpelling(std::string_view text) : Text(text) {}

    std::string Type() {
        std::string type = Name();
        if (Take('<')) {
            type = Instance(type);
        }
        // A member of an instance: the iterator of a vector.
        while (Text.substr(Place).starts_with("::")) {
            Place += 2;
            type = Name();
            if (Take('<')) {
                type = Instance(type);
            }
        }
        return type + Suffix();
    }

private:
    /** The last part of a qualified name; blanks stay where they part words, as in `unsigned long`. */
    std::string Name() {
        std::string name;
        while (Place < Text.size()) {
            if (Text.substr(Place).starts_with("::")) {
                name.clear();
                Place += 2;
                continue;
            }
            char const character = Text[Place];
            if (character == ' ' && Text.substr(Place + 1).starts_with("const")) {
                break;
            }
            bool const isWord = std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
            if (!isWord && character != ' ') {
                break;
            }
            name += character;
            ++Place;
        }
        return AsPeopleWrite(Trim(name));
    }

    /** What stands between the angle brackets, of which the first is read. */
    std::string Instance(std::string const& name) {
        std::vector<std::string> arguments;
        do {
            SkipBlanks();
            std::string const argument = Type();
            if (!IsDefault(argument)) {
                arguments.push_back(argument);
            }
            SkipBlanks();
        } while (Take(','));
        Take('>');
        if (name == "basic_string" && arguments.size() == 1 && arguments.front() == "char") {
            return "string";
        }
        if (name == "unique_ptr" && arguments.size() == 1) {
            std::string owned = arguments.front();
            if (owned.ends_with("[]")) {
                owned.resize(owned.size() - 2);
            }
            return owned + "*";
        }
        if (name == "array" && arguments.size() == 2) {
            return arguments[0] + "[" + arguments[1] + "]";
        }
        std::string instance = name + "<";
        for (std::string const& argument : arguments) {
            instance += (&argument == &arguments.front() ? "" : ", ") + argument;
        }
        return instance + ">";
    }

    /** Pointers, references, `const`, the sizes of arrays and the parameters of functions. */
    std::string Suffix() {
        std::string suffix;
        while (Place < Text.size()) {
            char const character = Text[Place];
            if (Text.substr(Place).starts_with("const")) {
                suffix += " const";
                Place += 5;
            } else if (character == '[') {
                std::size_t const end = std::min(Text.find(']', Place), Text.size() - 1);
                suffix += Text.substr(Place, end + 1 - Place);
                Place = end + 1;
            } else if (character == '(') {
                suffix += Parameters();
            } else if (character == '*' || character == '&') {
                suffix += character;
                ++Place;
            } else if (character == ' ') {
                ++Place;
            } else {
                break;
            }
        }
        return suffix;
    }

    std::string Parameters() {
        std::string parameters = "(";
        Take('(');
        while (Place < Text.size() && !Take(')')) {
            SkipBlanks();
            parameters += (parameters == "(" ? "" : ", ") + Type();
            if (Place < Text.size() && Text[Place] != ')' && !Take(',')) {
                throw std::runtime_error("a type in `" + std::string(Text) + "` isn't understood");
            }
        }
        return parameters + ")";
    }

    bool Take(char character) {
        if (Place >= Text.size() || Text[Place] != character) {
            return false;
        }
        ++Place;
        return true;
    }

    void SkipBlanks() {
        while (Take(' ')) {}
    }

    std::string_view Text;
    std::size_t Place = 0;
};

/** The places between commas that stand in no brackets. */
std::vector<std::string_view> SplitAtCommas(std::string_view text) {
    std::vector<std::string_view> parts;
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        char const character = text[place];
        depth += character == '<' || character == '(' ? 1 : 0;
        depth -= character == '>' || character == ')' ? 1 : 0;
        if (character == ',' && depth == 0) {
            parts.push_back(text.substr(start, place - start));
            start = place + 1;
        }
    }
    if (!Trim(text.substr(start)).empty()) {
        parts.push_back(text.substr(start));
    }
    return parts;
}

} // namespace

std::string TypeName(std::string_view spelling) {
    return TSpelling(Trim(spelling)).Type();
}

std::string_view Trim(std::string_view text) {
    std::size_t const first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

TSignature ReadSignature(std::string_view text) {
    std::size_t const open = text.find('(');
    std::size_t const close = text.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
        throw std::runtime_error("`" + std::string(text) + "` isn't `[result] name(parameters) [const]`");
    }
    std::string_view const head = Trim(text.substr(0, open));
    std::size_t nameStart = head.find("operator");
    if (nameStart == std::string_view::npos) {
        std::size_t const blank = head.rfind(' ');
        nameStart = blank == std::string_view::npos ? 0 : blank + 1;
    }
    TSignature signature;
    signature.name = head.substr(nameStart);
    if (std::string_view const result = Trim(head.substr(0, nameStart)); !result.empty()) {
        signature.result = TypeName(result);
    }
    for (std::string_view const parameter : SplitAtCommas(text.substr(open + 1, close - open - 1))) {
        signature.parameters.push_back(TypeName(parameter));
    }
    signature.isConst = Trim(text.substr(close + 1)) == "const";
    return signature;
}

std::string ToString(TSignature const& signature) {
    std::string text = signature.result.empty() ? "" : signature.result + " ";
    text += signature.name + "(";
    for (std::string const& parameter : signature.parameters) {
        text += (&parameter == &signature.parameters.front() ? "" : ", ") + parameter;
    }
    return text + (signature.isConst ? ") const" : ")");
}

bool Agree(TSignature const& stated, TSignature const& found) {
    return stated.name == found.name && stated.parameters == found.parameters &&
           stated.isConst == found.isConst && (stated.result.empty() || stated.result == found.result);
}

} // namespace Abi
