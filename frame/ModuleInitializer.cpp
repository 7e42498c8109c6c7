#include "frame/ModuleInitializer.h"

#include "frame/imported/ModuleHooks.h"

#include <dlfcn.h>

#include <stdexcept>
#include <utility>

extern "C" {

// A name that no other module can take over: the address of `Init_Vellari` itself may be that of a stub in a
// host that takes it, and the loader would then report the host's file.
void Init_Vellari_InThisModule() __attribute__((visibility("hidden"), alias("Init_Vellari")));

void Init_Vellari() {
    KvRefSystem::KvModule_Initializer::getInst().init(std::string(), std::string());
}

void Deinit_Vellari() {
    KvRefSystem::KvModule_Initializer::getInst().deinit();
}

} // extern "C"

namespace KvRefSystem {

namespace {

std::string OwnFileName() {
    Dl_info info = {};
    bool const isKnown = dladdr(reinterpret_cast<void*>(&Init_Vellari_InThisModule), &info) != 0;
    if (!isKnown || !info.dli_fname) {
        // The text that hosts know, whatever this standard library says about a string from null.
        throw std::logic_error("basic_string::_M_construct null not valid");
    }
    return info.dli_fname;
}

} // namespace

KvModule_Initializer::KvModule_Initializer()
    : referenceCount(0), moduleName("Vellari"), moduleExtension("so") {}

KvModule_Initializer& KvModule_Initializer::getInst() {
    static KvModule_Initializer instance;
    return instance;
}

void KvModule_Initializer::init(std::string const& /*first*/, std::string const& /*second*/) {
    if (referenceCount != 0) {
        ++referenceCount;
        return;
    }
    Init_QorDataUtils();
    Init_LumMath();

    std::string path = OwnFileName();
    std::size_t const separator = path.find_last_of("/\\");
    std::size_t const nameStart = separator == std::string::npos ? 0 : separator + 1;
    std::string directory = path.substr(0, nameStart);
    std::string fileName = path.substr(nameStart);
    std::size_t const dot = fileName.rfind('.');
    std::string extension = dot == std::string::npos ? std::string() : fileName.substr(dot + 1);

    modulePath = std::move(path);
    moduleDirectory = std::move(directory);
    moduleFileName = std::move(fileName);
    moduleExtension = std::move(extension);
    referenceCount = 1;
}

void KvModule_Initializer::deinit() {
    if (referenceCount == 0) {
        return;
    }
    --referenceCount;
    if (referenceCount != 0) {
        return;
    }
    // Kept: hosts rely on the stops coming in the order of the starts, not in the reverse.
    Deinit_QorDataUtils();
    Deinit_LumMath();
}

std::string KvModule_Initializer::get_resource_string(std::string const& key) const {
    return get_resource_string(key, std::string());
}

std::string KvModule_Initializer::get_resource_string(std::string const& key,
                                                      std::string const& fallback) const {
    std::string const* text = nullptr;
    bool const isKnown = LoadResString(moduleName, key, &text);
    return isKnown && text ? *text : fallback;
}

std::uint64_t KvModule_Initializer::get_reference_count() const {
    return referenceCount;
}

std::string const& KvModule_Initializer::get_module_path() const {
    return modulePath;
}

std::string const& KvModule_Initializer::get_module_directory() const {
    return moduleDirectory;
}

std::string const& KvModule_Initializer::get_module_file_name() const {
    return moduleFileName;
}

std::string const& KvModule_Initializer::get_module_extension() const {
    return moduleExtension;
}

} // namespace KvRefSystem
