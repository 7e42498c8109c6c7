#pragma once

#include <new>
#include <stdexcept>

namespace KvRefSystem {

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

} // namespace KvRefSystem
