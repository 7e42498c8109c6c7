#include "tests/abi/StatedComparison.h"

#include "tests/abi/ClassLayout.h"

#include <algorithm>
#include <map>

namespace Abi {
namespace {

constexpr std::size_t DestructorSlots = 2;

/** The slots of a virtual table; a slot without a signature is one of a destructor's. */
using TTable = std::vector<TStatedSlot>;

/** The comparison of one class; collects its lines. */
class TClassComparison {
public:
    TClassComparison(TStatedClass const& stated, TFoundClass const& found, TLayoutRules const& rules,
                     TLibraryTypes const& library)
        : Stated(stated), Found(found), Rules(rules), Library(library) {}

    std::vector<std::string> Lines() {
        Base();
        if (!Stated.open.empty()) {
            OpenVirtuals();
            return Differences;
        }
        Members();
        if (Differences.empty()) {
            Layout();
        }
        Slots();
        return Differences;
    }

private:
    void Say(std::string const& difference) {
        Differences.push_back(Stated.where + ": " + Stated.name + ": " + difference);
    }

    void Base() {
        std::string found;
        for (TFoundBase const& base : Found.bases) {
            found += (found.empty() ? "" : ", ") + base.name;
            if (base.isVirtual || base.offset != 0) {
                Say("the base " + base.name + " doesn't lie at the start");
            }
        }
        if (found != Stated.base) {
            Say("stated " + (Stated.base.empty() ? "without a base" : "base " + Stated.base) +
                ", the library has " + (found.empty() ? "none" : found));
        }
    }

    void Members() {
        std::size_t const stated = Stated.members.size();
        std::size_t const found = Found.members.size();
        for (std::size_t index = 0; index < std::max(stated, found); ++index) {
            if (index >= stated) {
                if (Stated.ownMembers.empty()) {
                    Say("member " + Text(Found.members[index]) + " isn't stated");
                }
            } else if (index >= found) {
                Say("member " + Text(Stated.members[index]) + " is missing");
            } else {
                Member(index);
            }
        }
    }

    void Member(std::size_t index) {
        TStatedMember const& stated = Stated.members[index];
        TFoundMember const& found = Found.members[index];
        if (stated.name == found.name && stated.type == found.type) {
            return;
        }
        std::string const place = "member " + std::to_string(index + 1) + " is stated as " + Text(stated) +
                                  ", the library has " + Text(found) + " there";
        auto const elsewhere =
            std::find_if(Found.members.begin(), Found.members.end(),
                         [&](TFoundMember const& other) { return other.name == stated.name; });
        bool const isElsewhere = elsewhere != Found.members.end() && stated.name != found.name;
        Say(isElsewhere ? place + "; " + stated.name + " stands as member " +
                              std::to_string(elsewhere - Found.members.begin() + 1)
                        : place);
    }

    /** Only for members that agree: an offset then differs where the packing or the alignment was changed. */
    void Layout() {
        TClassLayout const layout = Rules.Of(Stated);
        for (std::size_t index = 0; index < layout.offsets.size(); ++index) {
            TFoundMember const& found = Found.members[index];
            if (found.offset != layout.offsets[index]) {
                Say("member " + found.name + " lies at byte " + std::to_string(found.offset) +
                    ", by the rules at " + std::to_string(layout.offsets[index]));
            }
        }
        if (Found.size != layout.size) {
            Say("has " + std::to_string(Found.size) + " bytes, by the rules " + std::to_string(layout.size));
        }
    }

    void Slots() {
        TTable const table = Table(Stated);
        for (TFoundVirtual const& found : Found.virtuals) {
            Slot(table, found);
        }
        Declared(table);
        bool const hasDestructor =
            std::any_of(table.begin(), table.end(), [](TStatedSlot const& slot) { return !slot; });
        if (Found.hasVirtualDestructor && !hasDestructor) {
            Say("its destructor is stated as not virtual, the library's is");
        }
        if (Found.slotCount && *Found.slotCount != table.size()) {
            Say("its table has " + std::to_string(table.size()) + " slots as stated, the library's " +
                std::to_string(*Found.slotCount));
        }
    }

    void Slot(TTable const& table, TFoundVirtual const& found) {
        std::string const place = "slot " + std::to_string(found.slot);
        std::string const has = ", the library has " + ToString(found.signature) + " there";
        if (found.slot >= table.size()) {
            Say(ToString(found.signature) + " in " + place + " is a virtual function that isn't stated");
        } else if (!table[found.slot]) {
            Say(place + " is stated as the destructor's" + has);
        } else if (!Agree(*table[found.slot], found.signature)) {
            Say(place + " is stated as " + ToString(*table[found.slot]) + has);
        }
    }

    /** The functions that the class brings itself; those of its base are declared there. */
    void Declared(TTable const& table) {
        std::size_t const own = OwnSlots(Stated);
        for (std::size_t slot = table.size() - own; slot < table.size(); ++slot) {
            bool const isThere =
                table[slot] ? std::any_of(Found.virtuals.begin(), Found.virtuals.end(),
                                          [&](TFoundVirtual const& found) { return found.slot == slot; })
                            : Found.hasVirtualDestructor;
            if (!isThere) {
                Say("slot " + std::to_string(slot) + " is stated as " +
                    (table[slot] ? ToString(*table[slot]) : "the destructor's") +
                    ", the library has none there");
            }
        }
    }

    void OpenVirtuals() {
        for (TSignature const& stated : Stated.virtuals) {
            bool const isThere =
                std::any_of(Found.virtuals.begin(), Found.virtuals.end(),
                            [&](TFoundVirtual const& found) { return Agree(stated, found.signature); });
            if (!isThere) {
                Say(ToString(stated) + " is stated as virtual, the library has no such one");
            }
        }
    }

    std::size_t OwnSlots(TStatedClass const& stated) const {
        std::size_t count = DestructorFollows(stated) ? DestructorSlots : 0;
        for (TStatedSlot const& slot : stated.slots) {
            count += slot ? 1 : DestructorSlots;
        }
        return count;
    }

    bool DestructorFollows(TStatedClass const& stated) const {
        auto const found = Library.classes.find(stated.name);
        return !stated.destructorMayFollow.empty() && found != Library.classes.end() &&
               found->second.hasVirtualDestructor;
    }

    TTable Table(TStatedClass const& stated) const {
        TStatedClass const* const base = Rules.Find(stated.base);
        TTable table = base != nullptr ? Table(*base) : TTable();
        for (TStatedSlot const& slot : stated.slots) {
            table.insert(table.end(), slot ? 1 : DestructorSlots, slot);
        }
        table.insert(table.end(), DestructorFollows(stated) ? DestructorSlots : 0, TStatedSlot());
        return table;
    }

    template <class TMember>
    static std::string Text(TMember const& member) {
        return "`" + member.type + " " + member.name + "`";
    }

    TStatedClass const& Stated;
    TFoundClass const& Found;
    TLayoutRules const& Rules;
    TLibraryTypes const& Library;
    std::vector<std::string> Differences;
};

/** The class together with the stated template between it and its base. */
TFoundClass WithTemplateBetween(TFoundClass found, TStatedClass const& stated, TLibraryTypes const& library) {
    if (stated.via.empty() || found.bases.size() != 1 ||
        !found.bases.front().name.starts_with(stated.via + "<")) {
        return found;
    }
    auto const between = library.classes.find(found.bases.front().name);
    if (between == library.classes.end()) {
        return found;
    }
    found.bases = between->second.bases;
    found.members.insert(found.members.begin(), between->second.members.begin(),
                         between->second.members.end());
    found.virtuals.insert(found.virtuals.end(), between->second.virtuals.begin(),
                          between->second.virtuals.end());
    return found;
}

} // namespace

TStatedComparison::TStatedComparison(TStatedTable const& stated, TLibraryTypes const& library)
    : Stated(stated), Library(library) {}

std::vector<std::string> TStatedComparison::Differences(TStatedClass const& stated) const {
    auto const found = Library.classes.find(stated.name);
    if (found == Library.classes.end()) {
        return {stated.where + ": " + stated.name + ": the library has no such class"};
    }
    TLayoutRules const rules(Stated, Library);
    TFoundClass const whole = WithTemplateBetween(found->second, stated, Library);
    return TClassComparison(stated, whole, rules, Library).Lines();
}

std::vector<std::string> TStatedComparison::Differences(TStatedEnumeration const& stated) const {
    std::string const head = stated.where + ": " + stated.name + ": ";
    auto const found = Library.enumerations.find(stated.name);
    if (found == Library.enumerations.end()) {
        return {head + "the library has no such enumeration"};
    }
    std::vector<std::string> differences;
    if (found->second.underlyingSize != sizeof(int)) {
        differences.push_back(head + "stated over int, the library's values have " +
                              std::to_string(found->second.underlyingSize) + " bytes");
    }
    std::map<std::string, long> unstated = found->second.values;
    for (TStatedEnumeration::TValue const& value : stated.values) {
        auto const place = unstated.find(value.name);
        if (place == unstated.end()) {
            differences.push_back(head + value.name + " is missing");
            continue;
        }
        if (place->second != value.value) {
            differences.push_back(head + value.name + " is stated as " + std::to_string(value.value) +
                                  ", the library has " + std::to_string(place->second));
        }
        unstated.erase(place);
    }
    for (auto const& [name, value] : unstated) {
        differences.push_back(head + name + " = " + std::to_string(value) + " isn't stated");
    }
    return differences;
}

} // namespace Abi
