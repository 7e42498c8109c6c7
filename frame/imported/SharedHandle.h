#pragma once

#include <atomic>
#include <cstdint>
#include <new>
#include <type_traits>
#include <utility>

namespace var_a_legacy {

/** Control item of a shared object: the count and the function that ends it. */
struct var_a_item {
    std::atomic<std::uint64_t> count;     ///< number of handles
    void (*destroy_fn)(var_a_item* item); ///< called when the count comes to 0

    /** An item with one handle. */
    explicit var_a_item(void (*destroy)(var_a_item* item)) : count(1), destroy_fn(destroy) {}
};

/** An item that points at its object and deletes it. */
template <class T>
struct TPointer_var_a_item : var_a_item {
    T* object;

    /** Takes over `source`, which may be null. */
    explicit TPointer_var_a_item(T* source) : var_a_item(&Destroy), object(source) {}

    /** Ends object and item. @param item of this class. */
    static void Destroy(var_a_item* item) {
        auto* const self = static_cast<TPointer_var_a_item*>(item);
        delete self->object;
        delete self;
    }
};

/** An item that holds its object inside; ending the item ends the object. */
template <class T>
struct TEmbedded_var_a_item : var_a_item {
    T object;

    /** @param arguments of the object's constructor. */
    template <class... Arguments>
    explicit TEmbedded_var_a_item(Arguments&&... arguments)
        : var_a_item(&Destroy), object(std::forward<Arguments>(arguments)...) {}

    /** Ends item and object. @param item of this class. */
    static void Destroy(var_a_item* item) { delete static_cast<TEmbedded_var_a_item*>(item); }
};

/**
 * Shared, counted handle of an object. T may be written as the object's type or as a pointer to it:
 * both hold a pointer to the object. Handles of one object may be copied and dropped on different threads.
 */
template <class T>
class var_a {
public:
    /** The object's type, however T was written. */
    using object_type = std::remove_pointer_t<T>;

    /** An empty handle. */
    var_a() noexcept = default;

    /** Takes over an item whose count already includes this handle. */
    var_a(var_a_item* sharedItem, object_type* sharedObject) noexcept
        : item(sharedItem), object(sharedObject) {}

    /** Shares the object. */
    var_a(var_a const& source) noexcept : item(source.item), object(source.object) {
        if (item) {
            item->count.fetch_add(1, std::memory_order_relaxed);
        }
    }

    /** Takes the share over; `source` is empty afterwards. */
    var_a(var_a&& source) noexcept
        : item(std::exchange(source.item, nullptr)), object(std::exchange(source.object, nullptr)) {}

    /** Drops the share and takes that of `source`. */
    var_a& operator=(var_a source) noexcept {
        std::swap(item, source.item);
        std::swap(object, source.object);
        return *this;
    }

    ~var_a() { release(); }

    /** Drops the share; the handle is empty afterwards. */
    void release() noexcept {
        var_a_item* const dropped = std::exchange(item, nullptr);
        object = nullptr;
        if (dropped && dropped->count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            dropped->destroy_fn(dropped);
        }
    }

    /** @return the object, or null. */
    object_type* get() const noexcept { return object; }

    /** @return whether there is an object; a handle with a count may still hold none. */
    explicit operator bool() const noexcept { return object != nullptr; }

    /** @return the object; the handle must hold one, as for the reference below. */
    object_type* operator->() const noexcept { return object; }
    /** @return the object. */
    object_type& operator*() const noexcept { return *object; }

    /** @return the number of handles of the object, 0 for an empty handle. */
    std::uint64_t use_count() const noexcept { return item ? item->count.load() : 0; }

private:
    var_a_item* item = nullptr;
    object_type* object = nullptr;
};

/**
 * Makes a handle that owns `object`, which may be null: the handle then has a count but no object.
 * @throws std::bad_alloc; `object` is deleted then.
 */
template <class T>
var_a<T*> newobj_a(T* object) {
    try {
        auto* const item = new TPointer_var_a_item<T>(object);
        return var_a<T*>(item, object);
    } catch (...) {
        delete object;
        throw;
    }
}

/** Makes a handle of an object that is built inside of its control item. */
template <class T, class... Arguments>
var_a<T> newembedded_a(Arguments&&... arguments) {
    auto* const item = new TEmbedded_var_a_item<T>(std::forward<Arguments>(arguments)...);
    return var_a<T>(item, &item->object);
}

} // namespace var_a_legacy
