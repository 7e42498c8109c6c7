#pragma once

#include <stdexcept>
#include <string>

/** @return the text of the std::runtime_error that `call` throws; a note in brackets without one. */
template <class Call>
std::string FailureOf(Call call) {
    try {
        call();
    } catch (std::runtime_error const& error) {
        return error.what();
    }
    return "(nothing was thrown)";
}
