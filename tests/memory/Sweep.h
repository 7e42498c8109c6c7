#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

/**
 * Runs operations without enough memory: the first allocation fails, then the second, and so on until none is
 * missing; first that one alone, then that one and all behind it. Each operation states how it may end then and
 * what it may leave.
 */
namespace MemorySweep {

/** How a run ended. The failing ends are bits: an operation states a set of them. */
enum TEnd : unsigned {
    Done = 0,
    Null = 1,          ///< no object came
    False = 2,         ///< a bool or a status told of the failure
    BadAlloc = 4,      ///< std::bad_alloc passed
    RuntimeError = 8,  ///< std::runtime_error passed, with the text of the operation
    LogicError = 16,   ///< std::logic_error passed
    AnotherError = 32, ///< something else passed; no operation states it
};

/** One run: what it does, and what there is to see before and after. */
struct TRun {
    std::function<TEnd()> act;
    std::function<std::string()> state;
};

/** One operation of a family. */
struct TOperation {
    std::string name;
    unsigned onFailure; ///< the stated ends without enough memory

    std::function<TRun()> begin;

    /**
     * Leads to the state, other than that of before, that the operation states for a failure; may be empty.
     * Kept apart: most operations leave what they found.
     */
    std::function<TRun()> lapse = {};

    /** What is left after a failure only has to be whole: it can be looked at and ended. */
    bool anyState = false;
};

/** Sweeps one operation; adds what it survived to the family's figures. */
void Sweep(std::string const& family, TOperation const& operation);

inline TEnd EndOf(bool isDone) {
    return isDone ? Done : False;
}

/** An operation that makes an object, which `describe` can tell. */
template <class Object>
TOperation Makes(std::string name, unsigned onFailure, std::function<std::unique_ptr<Object>()> make,
                 std::function<std::string(Object const&)> describe) {
    auto const begin = [make = std::move(make), describe = std::move(describe)] {
        auto const made = std::make_shared<std::unique_ptr<Object>>();
        return TRun{[made, make] {
                        *made = make();
                        return *made ? Done : Null;
                    },
                    [made, describe] { return *made ? describe(**made) : std::string("none"); }};
    };
    return {std::move(name), onFailure, begin};
}

/** An operation that changes an object. @param lapse see `TOperation`; may be empty. */
template <class Object>
TOperation Edits(std::string name, unsigned onFailure, std::function<std::unique_ptr<Object>()> const& make,
                 std::function<bool(Object*)> const& edit,
                 std::function<std::string(Object const&)> const& describe,
                 std::function<void(Object*)> const& lapse = {}) {
    auto const begin = [make, describe](std::function<bool(Object*)> const& change) {
        std::shared_ptr<Object> const object(make());
        return TRun{[object, change] { return EndOf(change(object.get())); },
                    [object, describe] { return describe(*object); }};
    };
    TOperation operation = {std::move(name), onFailure, [begin, edit] { return begin(edit); }};
    if (lapse) {
        operation.lapse = [begin, lapse] {
            return begin([lapse](Object* object) {
                lapse(object);
                return true;
            });
        };
    }
    return operation;
}

/** An operation that fills an output, which begins as `before` and stays so after a failure. */
template <class Output>
TOperation Fills(std::string name, unsigned onFailure, Output const& before,
                 std::function<bool(Output*)> const& fill,
                 std::function<std::string(Output const&)> const& describe) {
    return Edits<Output>(
        std::move(name), onFailure, [before] { return std::make_unique<Output>(before); }, fill, describe);
}

/** The same for a text. */
inline TOperation FillsText(std::string name, unsigned onFailure,
                            std::function<bool(std::string*)> const& fill) {
    return Fills<std::string>(std::move(name), onFailure,
                              "a text that was there before, long enough for memory", fill,
                              [](std::string const& text) { return text; });
}

} // namespace MemorySweep
