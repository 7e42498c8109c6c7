#pragma once

#include <functional>
#include <memory>
#include <string>

/** Type of the handler that is called when an option of type T changes. */
template <class T>
struct TOnOptionChangeEvent {
    /** Gets the option's name and its new value; an empty handler is legal. */
    using type = std::function<void(std::string const& name, T const& value)>;
};

/**
 * The application's table of named, typed options, for double, int, bool and string.
 *
 * The table protects itself: its operations may be called from several threads. Handlers are called outside
 * of the table's lock, on the thread that changed the option.
 */
class TKvOptionTable {
public:
    TKvOptionTable();
    ~TKvOptionTable();
    TKvOptionTable(TKvOptionTable const&) = delete;
    TKvOptionTable& operator=(TKvOptionTable const&) = delete;

    /**
     * Registers an option with its default; an option that is registered already keeps its value and gains
     * the handler.
     *
     * @param name    the option's path, for example "planet/ellipsoid/a".
     * @param value   default value.
     * @param handler called at each later change; may be empty.
     * @return a registration number, above 0.
     * @throws std::runtime_error when the name is registered with another type.
     */
    template <class T>
    int RegisterOption(std::string const& name, T const& value,
                       typename TOnOptionChangeEvent<T>::type handler);

    /**
     * @param name path of a registered option.
     * @return the current value; the reference stays valid with this value when the option changes.
     * @throws std::runtime_error for an unknown name or another type.
     */
    template <class T>
    T const& GetS(std::string const& name) const;

    /**
     * Changes a registered option and calls its handlers, if the value is a new one.
     * @throws std::runtime_error for an unknown name or another type.
     */
    template <class T>
    void SetS(std::string const& name, T const& value);

private:
    struct State;
    std::unique_ptr<State> state;
};

/** Gives access to the option tables of the process; the first virtual operation is the one that counts. */
class TKvOptionTableAccess {
public:
    /**
     * @param kind 1 for the table of the application.
     * @return the table, or null for any other kind.
     */
    virtual TKvOptionTable* GetTable(int kind);
};

/** The process's option tables. */
extern TKvOptionTableAccess GlobalOT;
