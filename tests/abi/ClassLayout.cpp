#include "tests/abi/ClassLayout.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <string_view>

namespace Abi {
namespace {

constexpr std::size_t PointerSize = 8;

struct TKnownType {
    std::string_view start; ///< of its name
    std::size_t size;
    std::size_t alignment;
};

/** The fundamental types, and those of the standard library that stand in our classes. */
constexpr std::array<TKnownType, 11> KnownTypes = {{
    {"bool", 1, 1},
    {"char", 1, 1},
    {"int", 4, 4},
    {"unsigned int", 4, 4},
    {"float", 4, 4},
    {"long", 8, 8},
    {"unsigned long", 8, 8},
    {"double", 8, 8},
    {"string", 32, 8},
    {"vector<", 24, 8},
    {"map<", 48, 8},
}};

std::size_t RoundUp(std::size_t size, std::size_t alignment) {
    return (size + alignment - 1) / alignment * alignment;
}

bool IsKnown(TKnownType const& known, std::string const& type) {
    return known.start.ends_with("<") ? type.starts_with(known.start) && type.ends_with(">")
                                      : type == known.start;
}

} // namespace

TLayoutRules::TLayoutRules(TStatedTable const& stated, TLibraryTypes const& library)
    : Stated(stated), Library(library) {}

TStatedClass const* TLayoutRules::Find(std::string const& name) const {
    for (TStatedClass const& stated : Stated.classes) {
        if (stated.name == name) {
            return &stated;
        }
    }
    return nullptr;
}

TLayoutRules::TExtent TLayoutRules::Extent(std::string const& type) const {
    if (type.ends_with("*") || type.ends_with("&") || type.ends_with("* const")) {
        return {PointerSize, PointerSize};
    }
    if (type.ends_with("]")) {
        std::size_t const open = type.rfind('[');
        std::size_t length = 0;
        std::from_chars(type.data() + open + 1, type.data() + type.size(), length);
        TExtent const element = Extent(type.substr(0, open));
        return {element.size * length, element.alignment};
    }
    for (TKnownType const& known : KnownTypes) {
        if (IsKnown(known, type)) {
            return {known.size, known.alignment};
        }
    }
    if (TStatedClass const* const stated = Find(type)) {
        TClassLayout const layout = Of(*stated);
        return {layout.size, layout.alignment};
    }
    for (TStatedEnumeration const& enumeration : Stated.enumerations) {
        if (enumeration.name == type) {
            return Extent("int");
        }
    }
    auto const found = Library.classes.find(type);
    if (found == Library.classes.end()) {
        throw std::runtime_error("the size of `" + type + "` is known to neither the table nor the library");
    }
    TExtent extent{found->second.size, found->second.virtuals.empty() ? 1 : PointerSize};
    for (TFoundBase const& base : found->second.bases) {
        extent.alignment = std::max(extent.alignment, Extent(base.name).alignment);
    }
    for (TFoundMember const& member : found->second.members) {
        extent.alignment = std::max(extent.alignment, Extent(member.type).alignment);
    }
    return extent;
}

TClassLayout TLayoutRules::Of(TStatedClass const& stated) const {
    TClassLayout layout;
    if (TStatedClass const* const base = Find(stated.base)) {
        layout = Of(*base);
        layout.offsets.clear();
    }
    if (!layout.isPolymorphic && (!stated.slots.empty() || !stated.virtuals.empty())) {
        layout.isPolymorphic = true;
        layout.dataSize = PointerSize;
        layout.alignment = PointerSize;
    }
    auto const add = [&](std::string const& type) {
        TExtent const extent = Extent(type);
        layout.offsets.push_back(RoundUp(layout.dataSize, extent.alignment));
        layout.dataSize = layout.offsets.back() + extent.size;
        layout.alignment = std::max(layout.alignment, extent.alignment);
    };
    for (TStatedMember const& member : stated.members) {
        add(member.type);
    }
    auto const found = Library.classes.find(stated.name);
    if (!stated.ownMembers.empty() && found != Library.classes.end()) {
        for (std::size_t own = stated.members.size(); own < found->second.members.size(); ++own) {
            add(found->second.members[own].type);
        }
    }
    layout.size = std::max<std::size_t>(RoundUp(layout.dataSize, layout.alignment), 1);
    return layout;
}

} // namespace Abi
