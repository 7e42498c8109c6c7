#pragma once

#include <string>

/**
 * Process hooks: what the library asks of the process that it runs in.
 *
 * The bodies are the host's. The host kit has a set of them; an executable or a library that comes earlier
 * in the loader's search order may bring its own and thereby replace these.
 */

extern "C" {

/** Starts the data utilities that the library stands on. */
void Init_QorDataUtils();

/** Starts the mathematics module that the library stands on. */
void Init_LumMath();

/** Stops what `Init_QorDataUtils` started. */
void Deinit_QorDataUtils();

/** Stops what `Init_LumMath` started. */
void Deinit_LumMath();

} // extern "C"

/**
 * Looks a text up in the host's resource store.
 *
 * @param module name of the asking module, for example "Vellari".
 * @param key    scope and name with a dot between them, for example "global.UNIT_NAME_METRE".
 * @param text   receives the address of a string that the store keeps alive.
 * @return true when the key is known; false leaves `*text` alone.
 */
bool LoadResString(std::string const& module, std::string const& key, std::string const** text);

/** Prints one debug line. */
void KvPrintDbgMsg(std::string const& message);

/** The host application; null when the library runs outside of one. Only tested against null. */
extern void* KvApplication;
