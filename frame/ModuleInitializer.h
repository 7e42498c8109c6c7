#pragma once

#include <cstdint>
#include <string>

/** Starts the library; nested starts count. Not to be called from two threads at once. */
extern "C" void Init_Vellari();

/** Stops the library when every start has its stop; surplus stops are harmless. */
extern "C" void Deinit_Vellari();

namespace KvRefSystem {

/**
 * The one object of the process that counts the starts, knows the module's own file and serves texts.
 *
 * Lookups of texts need no start. The strings of the file's name are kept after a stop and filled again at
 * the next start from 0.
 */
class KvModule_Initializer {
public:
    /** @return the singleton, built at first use. */
    static KvModule_Initializer& getInst();

    KvModule_Initializer(KvModule_Initializer const&) = delete;
    KvModule_Initializer& operator=(KvModule_Initializer const&) = delete;

    /**
     * Starts the modules below, data utilities first, then mathematics, and finds the module's own file. A
     * nested start only counts. Both arguments are accepted and ignored.
     * @throws std::logic_error with "basic_string::_M_construct null not valid" when the loader knows no file
     *         name; the count stays 0 and the next start begins anew.
     */
    void init(std::string const& first, std::string const& second);

    /** Stops the modules below at the last stop, in the same order as at the start. */
    void deinit();

    /** @return the text of `key` in this module's resources, or an empty one. */
    std::string get_resource_string(std::string const& key) const;

    /** @return the text of `key` in this module's resources, or `fallback`. */
    std::string get_resource_string(std::string const& key, std::string const& fallback) const;

    /** @return the number of starts without a stop. */
    std::uint64_t get_reference_count() const;
    /** @return the full file name of the loaded module, as the loader reports it. */
    std::string const& get_module_path() const;
    /** @return the path up to and including its last "/" or "\\"; empty without one. */
    std::string const& get_module_directory() const;
    /** @return what follows the directory. */
    std::string const& get_module_file_name() const;
    /** @return what follows the last "." of the file name, without the dot. */
    std::string const& get_module_extension() const;

private:
    KvModule_Initializer();
    ~KvModule_Initializer() = default;

    std::uint64_t referenceCount;
    std::string moduleName;
    std::string modulePath;
    std::string moduleDirectory;
    std::string moduleFileName;
    std::string moduleExtension;
};

} // namespace KvRefSystem
