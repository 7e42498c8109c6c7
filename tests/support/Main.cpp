#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <locale>

// The main function of all tests. VELLARI_TEST_LOCALE names the locale of the host that the tests then play, in
// both of the forms that a host may set it in. Results must not depend on it.

namespace {

constexpr char Variable[] = "VELLARI_TEST_LOCALE";

/** @return false when the locale that is asked for isn't there. */
bool SetLocale(char const* name) {
    if (std::setlocale(LC_ALL, name) == nullptr) {
        return false;
    }
    try {
        std::locale::global(std::locale(name));
    } catch (std::exception const&) {
        return false;
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
    if (char const* const name = std::getenv(Variable)) {
        if (!SetLocale(name)) {
            std::cerr << Variable << ": the locale \"" << name
                      << "\" isn't installed; tools/setup test generates it\n";
            return 1;
        }
        std::cerr << "The locale is " << name << '\n';
    }
    return RUN_ALL_TESTS();
}
