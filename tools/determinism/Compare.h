#pragma once

#include <string>

namespace VellariDeterminism {

/**
 * Compares two outputs and tells, on standard output, for every block with a difference its first line that
 * differs, how far the numbers of it are apart, and how many lines differ.
 * @param first, second files. @return whether they are the same byte for byte.
 * @throws std::runtime_error for a file that can't be read.
 */
bool Compare(std::string const& first, std::string const& second);

} // namespace VellariDeterminism
