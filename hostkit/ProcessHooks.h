#pragma once

#include <functional>
#include <string>

/**
 * What a host may set of the process hooks that `frame/imported/ModuleHooks.h` declares, as long as it uses
 * the kit's own hooks and doesn't bring others.
 */
namespace VellariHostKit {

/** Receives one debug line, without a line end. */
using DebugSink = std::function<void(std::string const& message)>;

/**
 * Sends the lines of `KvPrintDbgMsg` to `sink` from now on. The sink is called on the thread that prints,
 * maybe on several at once.
 *
 * @param sink the new receiver; empty for the standard error stream, where the lines go at first.
 */
void SetDebugSink(DebugSink sink);

/**
 * Sets `KvApplication`. Call it before any other thread uses the library.
 * @param application the host application; null, as at first, when the library runs outside of one.
 */
void SetApplication(void* application);

} // namespace VellariHostKit
