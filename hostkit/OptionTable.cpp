#include "frame/imported/OptionTable.h"

#include <list>
#include <map>
#include <mutex>
#include <stdexcept>
#include <utility>
#include <variant>
#include <vector>

namespace {

template <class T>
constexpr char const* TypeName = "";
template <>
constexpr char const* TypeName<double> = "double";
template <>
constexpr char const* TypeName<int> = "int";
template <>
constexpr char const* TypeName<bool> = "bool";
template <>
constexpr char const* TypeName<std::string> = "string";

template <class T>
using Handler = typename TOnOptionChangeEvent<T>::type;

/** One option. Every value that it ever had stays in place, since callers hold references to them. */
template <class T>
struct Option {
    std::list<T> values;
    T const* current = nullptr;
    std::vector<std::shared_ptr<Handler<T> const>> handlers;

    static bool IsSame(T const& left, T const& right) {
        return left == right || (left != left && right != right);
    }

    /** @return whether the value is a new one. */
    bool Set(T const& value) {
        if (current && IsSame(*current, value)) {
            return false;
        }
        for (T const& known : values) {
            if (IsSame(known, value)) {
                current = &known;
                return true;
            }
        }
        current = &values.emplace_back(value);
        return true;
    }
};

using AnyOption = std::variant<Option<double>, Option<int>, Option<bool>, Option<std::string>>;

char const* TypeOf(AnyOption const& option) {
    return std::visit([]<class T>(Option<T> const&) { return TypeName<T>; }, option);
}

template <class T>
Option<T>& Typed(std::string const& name, AnyOption& option) {
    auto* const typed = std::get_if<Option<T>>(&option);
    if (!typed) {
        throw std::runtime_error("the option \"" + name + "\" is a " + TypeOf(option) + ", not a " +
                                 TypeName<T>);
    }
    return *typed;
}

} // namespace

struct TKvOptionTable::State {
    std::mutex guard;
    std::map<std::string, AnyOption> options;
    int registrations = 0;

    template <class T>
    Option<T>& Find(std::string const& name) {
        auto const found = options.find(name);
        if (found == options.end()) {
            throw std::runtime_error("the option \"" + name + "\" is not registered");
        }
        return Typed<T>(name, found->second);
    }
};

TKvOptionTable::TKvOptionTable() : state(std::make_unique<State>()) {}

TKvOptionTable::~TKvOptionTable() = default;

template <class T>
int TKvOptionTable::RegisterOption(std::string const& name, T const& value,
                                   typename TOnOptionChangeEvent<T>::type handler) {
    auto shared = handler ? std::make_shared<Handler<T> const>(std::move(handler)) : nullptr;
    std::lock_guard<std::mutex> const lock(state->guard);
    auto found = state->options.find(name);
    if (found == state->options.end()) {
        Option<T> fresh;
        fresh.Set(value);
        if (shared) {
            fresh.handlers.push_back(std::move(shared));
        }
        state->options.emplace(name, std::move(fresh));
        return ++state->registrations;
    }
    Option<T>& option = Typed<T>(name, found->second);
    if (shared) {
        option.handlers.push_back(std::move(shared));
    }
    return ++state->registrations;
}

template <class T>
T const& TKvOptionTable::GetS(std::string const& name) const {
    std::lock_guard<std::mutex> const lock(state->guard);
    return *state->Find<T>(name).current;
}

template <class T>
void TKvOptionTable::SetS(std::string const& name, T const& value) {
    std::vector<std::shared_ptr<Handler<T> const>> handlers;
    T const* current = nullptr;
    {
        std::lock_guard<std::mutex> const lock(state->guard);
        Option<T>& option = state->Find<T>(name);
        handlers = option.handlers;
        if (!option.Set(value)) {
            return;
        }
        current = option.current;
    }
    for (auto const& handler : handlers) {
        (*handler)(name, *current);
    }
}

template int TKvOptionTable::RegisterOption<double>(std::string const&, double const&,
                                                    TOnOptionChangeEvent<double>::type);
template int TKvOptionTable::RegisterOption<int>(std::string const&, int const&,
                                                 TOnOptionChangeEvent<int>::type);
template int TKvOptionTable::RegisterOption<bool>(std::string const&, bool const&,
                                                  TOnOptionChangeEvent<bool>::type);
template int TKvOptionTable::RegisterOption<std::string>(std::string const&, std::string const&,
                                                         TOnOptionChangeEvent<std::string>::type);
template double const& TKvOptionTable::GetS<double>(std::string const&) const;
template int const& TKvOptionTable::GetS<int>(std::string const&) const;
template bool const& TKvOptionTable::GetS<bool>(std::string const&) const;
template std::string const& TKvOptionTable::GetS<std::string>(std::string const&) const;
template void TKvOptionTable::SetS<double>(std::string const&, double const&);
template void TKvOptionTable::SetS<int>(std::string const&, int const&);
template void TKvOptionTable::SetS<bool>(std::string const&, bool const&);
template void TKvOptionTable::SetS<std::string>(std::string const&, std::string const&);

// Lives as long as the process, since handlers and statics may ask for it while they end.
TKvOptionTable* TKvOptionTableAccess::GetTable(int kind) {
    static auto* const application = new TKvOptionTable();
    return kind == 1 ? application : nullptr;
}

TKvOptionTableAccess GlobalOT;
