#pragma once

#include <exception>
#include <map>
#include <new>
#include <stdexcept>
#include <string>

namespace KvRefSystem {

/**
 * A projection can't be read, computed with or exported. Whoever asked for that answers with false, null or a
 * text of its own, and so this has none.
 */
class __attribute__((visibility("hidden"))) TUnusableProjection : public std::exception {};

/** Runs an export: a failure inside is a false, but memory that runs out passes. */
template <class Export>
bool ReportFailure(Export run) {
    try {
        return run();
    } catch (std::bad_alloc const&) {
        throw;
    } catch (std::length_error const&) {
        throw;
    } catch (...) {
        return false;
    }
}

/** The same for keys, which are as they were before when memory runs out. */
template <class Export>
bool ReportKeysFailure(std::map<int, std::string>* keys, Export run) {
    std::map<int, std::string> before = *keys;
    try {
        return ReportFailure(run);
    } catch (...) {
        keys->swap(before);
        throw;
    }
}

} // namespace KvRefSystem
