#include "tests/abi/LibraryTypes.h"

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <pugixml.hpp>
#include <stdexcept>
#include <unordered_map>

namespace Abi {
namespace {

/** A virtual table begins with the offset to the top and the type; each slot is a pointer. */
constexpr std::size_t TableHead = 2;
constexpr std::size_t PointerSize = 8;

std::string_view NameOf(pugi::xml_node node) {
    return node.attribute("name").as_string();
}

bool Is(pugi::xml_node node, std::string_view kind) {
    return node.name() == kind;
}

bool IsYes(pugi::xml_node node, char const* attribute) {
    return std::string_view(node.attribute(attribute).as_string()) == "yes";
}

/** @return what a symbol of the library stands for; nothing for one that is no mangled name. */
std::string Demangled(std::string const& symbol) {
    int status = 0;
    std::unique_ptr<char, decltype(&std::free)> const text(
        abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? std::string(text.get()) : std::string();
}

std::size_t Bytes(pugi::xml_node node, char const* attribute) {
    return node.attribute(attribute).as_ullong() / 8;
}

/** The names of the types that the file gives by number. */
class TTypeNumbers {
public:
    explicit TTypeNumbers(pugi::xml_node root) { Gather(root); }

    /** The type that a node refers to; an empty node for none. */
    pugi::xml_node Node(pugi::xml_node user) const {
        auto const found = Nodes.find(user.attribute("type-id").as_string());
        return found == Nodes.end() ? pugi::xml_node() : found->second;
    }

    std::string Name(pugi::xml_node user) const { return Spell(Node(user)); }

    TSignature Signature(pugi::xml_node function) const {
        TSignature signature;
        signature.name = NameOf(function);
        signature.result = Name(function.child("return"));
        for (pugi::xml_node const parameter : function.children("parameter")) {
            if (!IsYes(parameter, "is-artificial")) {
                signature.parameters.push_back(Name(parameter));
            }
        }
        return signature;
    }

private:
    void Gather(pugi::xml_node node) {
        for (pugi::xml_node const child : node.children()) {
            if (char const* const id = child.attribute("id").as_string(); *id != '\0') {
                Nodes.emplace(id, child);
            }
            Gather(child);
        }
    }

    std::string Spell(pugi::xml_node type) const {
        if (Is(type, "pointer-type-def")) {
            return Name(type) + "*";
        }
        if (Is(type, "reference-type-def")) {
            bool const isLvalue = std::string_view(type.attribute("kind").as_string()) == "lvalue";
            return Name(type) + (isLvalue ? "&" : "&&");
        }
        if (Is(type, "qualified-type-def")) {
            return Name(type) + (IsYes(type, "const") ? " const" : "") +
                   (IsYes(type, "volatile") ? " volatile" : "");
        }
        if (Is(type, "typedef-decl")) {
            return Name(type);
        }
        if (Is(type, "array-type-def")) {
            // The rows of a matrix follow one another: one array of all its numbers has the same layout.
            unsigned long long length = 1;
            for (pugi::xml_node const range : type.children("subrange")) {
                length *= range.attribute("length").as_ullong();
            }
            return Name(type) + "[" + std::to_string(length) + "]";
        }
        if (Is(type, "function-type")) {
            TSignature const signature = Signature(type);
            return ToString({"", signature.result, signature.parameters, false});
        }
        return TypeName(NameOf(type));
    }

    std::unordered_map<std::string, pugi::xml_node> Nodes;
};

class TLibraryReader {
public:
    explicit TLibraryReader(pugi::xml_node root) : Root(root), Numbers(root) {}

    TLibraryTypes Read() {
        for (pugi::xml_node const unit : Root.children("abi-instr")) {
            Scope(unit);
        }
        for (pugi::xml_node const symbol : Root.child("elf-variable-symbols").children("elf-symbol")) {
            VirtualTable(std::string(NameOf(symbol)), symbol.attribute("size").as_ullong());
        }
        return Types;
    }

private:
    void Scope(pugi::xml_node scope) {
        for (pugi::xml_node const child : scope.children()) {
            if (Is(child, "namespace-decl")) {
                Scope(child);
            } else if (Is(child, "class-decl") && !IsYes(child, "is-declaration-only")) {
                Types.classes.emplace(TypeName(NameOf(child)), Class(child));
            } else if (Is(child, "enum-decl") && !IsYes(child, "is-declaration-only")) {
                Types.enumerations.emplace(TypeName(NameOf(child)), Enumeration(child));
            }
        }
    }

    TFoundClass Class(pugi::xml_node node) const {
        TFoundClass found;
        found.size = Bytes(node, "size-in-bits");
        for (pugi::xml_node const base : node.children("base-class")) {
            found.bases.push_back(
                {Numbers.Name(base), Bytes(base, "layout-offset-in-bits"), IsYes(base, "is-virtual")});
        }
        for (pugi::xml_node const member : node.children("data-member")) {
            if (!IsYes(member, "static")) {
                pugi::xml_node const variable = member.child("var-decl");
                found.members.push_back({Numbers.Name(variable), std::string(NameOf(variable)),
                                         Bytes(member, "layout-offset-in-bits")});
            }
        }
        for (pugi::xml_node const member : node.children("member-function")) {
            if (!member.attribute("vtable-offset")) {
                continue;
            }
            if (IsYes(member, "destructor")) {
                found.hasVirtualDestructor = true;
                continue;
            }
            TSignature signature = Numbers.Signature(member.child("function-decl"));
            signature.isConst = IsYes(member, "const");
            found.virtuals.push_back({signature, member.attribute("vtable-offset").as_ullong()});
        }
        std::sort(
            found.virtuals.begin(), found.virtuals.end(),
            [](TFoundVirtual const& left, TFoundVirtual const& right) { return left.slot < right.slot; });
        return found;
    }

    TFoundEnumeration Enumeration(pugi::xml_node node) const {
        TFoundEnumeration found;
        found.underlyingSize = Bytes(Numbers.Node(node.child("underlying-type")), "size-in-bits");
        for (pugi::xml_node const value : node.children("enumerator")) {
            found.values.emplace(NameOf(value), value.attribute("value").as_llong());
        }
        return found;
    }

    /** The size of an exported virtual table tells how many slots there are, the destructor's among them. */
    void VirtualTable(std::string const& symbol, std::size_t size) {
        constexpr std::string_view start = "vtable for ";
        std::string const text = Demangled(symbol);
        if (!text.starts_with(start)) {
            return;
        }
        auto const found = Types.classes.find(TypeName(std::string_view(text).substr(start.size())));
        if (found != Types.classes.end()) {
            found->second.slotCount = size / PointerSize - TableHead;
        }
    }

    pugi::xml_node Root;
    TTypeNumbers Numbers;
    TLibraryTypes Types;
};

} // namespace

TLibraryTypes ReadLibraryTypes(std::string_view xml) {
    pugi::xml_document document;
    pugi::xml_parse_result const result = document.load_buffer(xml.data(), xml.size());
    if (!result) {
        throw std::runtime_error(std::string("the types of the library aren't XML: ") + result.description());
    }
    pugi::xml_node const root = document.child("abi-corpus");
    if (!root) {
        throw std::runtime_error("the types of the library have no `abi-corpus`: abidw didn't write them");
    }
    return TLibraryReader(root).Read();
}

} // namespace Abi
