#include "frame/ModuleInitializer.h"

#include "frame/imported/ModuleHooks.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

using KvRefSystem::KvModule_Initializer;

namespace {

/** What the process around the module does and what the module has asked of it. */
struct TFakeProcess {
    std::vector<std::string> calls;
    std::map<std::string, std::string> texts;
    std::string askedModule;
    bool answersWithoutText = false;

    bool isFakeLoader = false;
    bool loaderKnowsTheFile = true;
    char const* loaderFileName = nullptr;
    void const* askedAddress = nullptr;
};

TFakeProcess* process = nullptr;

void Record(char const* call) {
    if (process) {
        process->calls.emplace_back(call);
    }
}

int RealDlAddr(void const* address, Dl_info* info) {
    using Function = int (*)(void const*, Dl_info*);
    static auto const real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "dladdr"));
    return real(address, info);
}

// Before any start, and the first use of the object at all.
std::string const extensionBeforeAnyStart = KvModule_Initializer::getInst().get_module_extension();
std::string const pathBeforeAnyStart = KvModule_Initializer::getInst().get_module_path();

} // namespace

// Definitions of the executable come before those of the libraries, so these stand for the host's.
extern "C" {

void Init_QorDataUtils() {
    Record("Init_QorDataUtils");
}

void Init_LumMath() {
    Record("Init_LumMath");
}

void Deinit_QorDataUtils() {
    Record("Deinit_QorDataUtils");
}

void Deinit_LumMath() {
    Record("Deinit_LumMath");
}

int dladdr(void const* address, Dl_info* info) noexcept {
    if (!process || !process->isFakeLoader) {
        return RealDlAddr(address, info);
    }
    process->askedAddress = address;
    if (!process->loaderKnowsTheFile) {
        info->dli_fname = "what a failure leaves is not defined";
        return 0;
    }
    info->dli_fname = process->loaderFileName;
    return 1;
}

} // extern "C"

bool LoadResString(std::string const& module, std::string const& key, std::string const** text) {
    if (!process) {
        return false;
    }
    process->askedModule = module;
    if (process->answersWithoutText) {
        *text = nullptr;
        return true;
    }
    auto const found = process->texts.find(key);
    if (found == process->texts.end()) {
        return false;
    }
    *text = &found->second;
    return true;
}

namespace {

std::vector<std::string> const Starts = {"Init_QorDataUtils", "Init_LumMath"};
std::vector<std::string> const StartsAndStops = {"Init_QorDataUtils", "Init_LumMath", "Deinit_QorDataUtils",
                                                 "Deinit_LumMath"};

class ModuleInitializer : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(module.get_reference_count(), 0u);
        process = &fake;
    }

    void TearDown() override {
        while (module.get_reference_count() != 0) {
            Deinit_Vellari();
        }
        process = nullptr;
    }

    void StartFrom(char const* fileName) {
        fake.isFakeLoader = true;
        fake.loaderFileName = fileName;
        Init_Vellari();
    }

    TFakeProcess fake;
    KvModule_Initializer& module = KvModule_Initializer::getInst();
};

} // namespace

TEST_F(ModuleInitializer, IsOneObjectThatExistsBeforeAnyStart) {
    EXPECT_EQ(&KvModule_Initializer::getInst(), &KvModule_Initializer::getInst());
    EXPECT_EQ(extensionBeforeAnyStart, "so");
    EXPECT_EQ(pathBeforeAnyStart, "");
}

TEST_F(ModuleInitializer, NestedStartsCallEachDependencyOnce) {
    Init_Vellari();
    EXPECT_EQ(fake.calls, Starts);
    Init_Vellari();
    EXPECT_EQ(fake.calls, Starts);
    EXPECT_EQ(module.get_reference_count(), 2u);
    Deinit_Vellari();
    EXPECT_EQ(fake.calls, Starts);
    EXPECT_EQ(module.get_reference_count(), 1u);
    Deinit_Vellari();
    EXPECT_EQ(fake.calls, StartsAndStops);
    EXPECT_EQ(module.get_reference_count(), 0u);
}

TEST_F(ModuleInitializer, StopsComeInTheOrderOfTheStartsAndAreMeantTo) {
    Init_Vellari();
    fake.calls.clear();
    Deinit_Vellari();
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"Deinit_QorDataUtils", "Deinit_LumMath"}));
}

TEST_F(ModuleInitializer, StopWithoutAStartDoesNothing) {
    Deinit_Vellari();
    EXPECT_TRUE(fake.calls.empty());
    EXPECT_EQ(module.get_reference_count(), 0u);
    Init_Vellari();
    EXPECT_EQ(module.get_reference_count(), 1u);
}

TEST_F(ModuleInitializer, SurplusStopsAreHarmless) {
    Init_Vellari();
    Deinit_Vellari();
    Deinit_Vellari();
    Deinit_Vellari();
    EXPECT_EQ(fake.calls, StartsAndStops);
    EXPECT_EQ(module.get_reference_count(), 0u);
}

TEST_F(ModuleInitializer, StartAfterTheLastStopBeginsAnew) {
    Init_Vellari();
    Deinit_Vellari();
    fake.calls.clear();
    Init_Vellari();
    EXPECT_EQ(fake.calls, Starts);
}

TEST_F(ModuleInitializer, IgnoresTheArgumentsOfItsStart) {
    fake.isFakeLoader = true;
    fake.loaderFileName = "/a/Vellari.so";
    module.init("first", "second");
    EXPECT_EQ(fake.calls, Starts);
    EXPECT_EQ(module.get_module_path(), "/a/Vellari.so");
    module.deinit();
    EXPECT_EQ(fake.calls, StartsAndStops);
}

TEST_F(ModuleInitializer, TakesThePathApartAtItsLastSeparatorAndDot) {
    struct {
        char const* path;
        char const* directory;
        char const* fileName;
        char const* extension;
    } const rows[] = {
        {"/usr/lib/Vellari.so", "/usr/lib/", "Vellari.so", "so"},
        {"Vellari.so", "", "Vellari.so", "so"},
        {"Vellari", "", "Vellari", ""},
        {"/a/b.c/Vellari", "/a/b.c/", "Vellari", ""},
        {"x/y.", "x/", "y.", ""},
        {"C:\\lib\\Vellari.dll", "C:\\lib\\", "Vellari.dll", "dll"},
        {"/a\\b/c.d.e", "/a\\b/", "c.d.e", "e"},
        {"/a/b\\c.d", "/a/b\\", "c.d", "d"},
        {"/a/b/", "/a/b/", "", ""},
        {"/.so", "/", ".so", "so"},
        {"", "", "", ""},
    };
    for (auto const& row : rows) {
        StartFrom(row.path);
        EXPECT_EQ(module.get_module_path(), row.path);
        EXPECT_EQ(module.get_module_directory(), row.directory) << row.path;
        EXPECT_EQ(module.get_module_file_name(), row.fileName) << row.path;
        EXPECT_EQ(module.get_module_extension(), row.extension) << row.path;
        Deinit_Vellari();
    }
}

TEST_F(ModuleInitializer, KeepsItsStringsAfterAStopAndFillsThemAgainAtTheNextStart) {
    StartFrom("/first/One.a");
    Deinit_Vellari();
    EXPECT_EQ(module.get_module_path(), "/first/One.a");
    EXPECT_EQ(module.get_module_directory(), "/first/");
    EXPECT_EQ(module.get_module_file_name(), "One.a");
    EXPECT_EQ(module.get_module_extension(), "a");
    StartFrom("/second/Two");
    EXPECT_EQ(module.get_module_path(), "/second/Two");
    EXPECT_EQ(module.get_module_extension(), "");
}

TEST_F(ModuleInitializer, NestedStartDoesNotAskForTheFileAgain) {
    StartFrom("/first/One.a");
    StartFrom("/second/Two");
    EXPECT_EQ(module.get_module_path(), "/first/One.a");
}

TEST_F(ModuleInitializer, FindsItsOwnFile) {
    fake.isFakeLoader = true;
    fake.loaderFileName = "/x";
    Init_Vellari();
    Dl_info own = {};
    ASSERT_NE(RealDlAddr(fake.askedAddress, &own), 0);
    Deinit_Vellari();

    // The executable could have a stub of the same name; the loader knows where the function itself lies.
    void* const start = dlsym(RTLD_DEFAULT, "Init_Vellari");
    ASSERT_NE(start, nullptr);
    EXPECT_EQ(fake.askedAddress, start);

    fake.isFakeLoader = false;
    Init_Vellari();
    EXPECT_EQ(module.get_module_path(), own.dli_fname);
    EXPECT_EQ(module.get_module_file_name(), "Vellari.so");
    EXPECT_EQ(module.get_module_extension(), "so");
    EXPECT_EQ(module.get_module_directory() + module.get_module_file_name(), module.get_module_path());
}

TEST_F(ModuleInitializer, FailsWithTheKnownTextWhenTheLoaderKnowsNoName) {
    for (bool const loaderKnowsTheFile : {true, false}) {
        fake.calls.clear();
        fake.loaderKnowsTheFile = loaderKnowsTheFile;
        try {
            StartFrom(nullptr);
            FAIL() << "a start without a file name went through";
        } catch (std::logic_error const& error) {
            EXPECT_STREQ(error.what(), "basic_string::_M_construct null not valid");
        }
        EXPECT_EQ(fake.calls, Starts);
        EXPECT_EQ(module.get_reference_count(), 0u);
    }
}

TEST_F(ModuleInitializer, StartAfterAFailedOneStartsTheDependenciesAgain) {
    EXPECT_THROW(StartFrom(nullptr), std::logic_error);
    Deinit_Vellari();
    EXPECT_EQ(fake.calls, Starts);
    StartFrom("/a/Vellari.so");
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"Init_QorDataUtils", "Init_LumMath", "Init_QorDataUtils",
                                                    "Init_LumMath"}));
    EXPECT_EQ(module.get_reference_count(), 1u);
}

TEST_F(ModuleInitializer, GivesTheTextsOfItsOwnResourcesWithoutAStart) {
    fake.texts["global.UNIT_NAME_METRE"] = "metre";
    fake.texts["global.EMPTY"] = "";
    EXPECT_EQ(module.get_resource_string("global.UNIT_NAME_METRE"), "metre");
    EXPECT_EQ(fake.askedModule, "Vellari");
    EXPECT_EQ(module.get_resource_string("global.UNIT_NAME_METRE", "x"), "metre");
    EXPECT_EQ(module.get_resource_string("global.EMPTY", "x"), "");
    EXPECT_TRUE(fake.calls.empty());
}

TEST_F(ModuleInitializer, UnknownKeyGivesTheFallback) {
    EXPECT_EQ(module.get_resource_string("no.such.key"), "");
    EXPECT_EQ(module.get_resource_string("no.such.key", "x"), "x");
}

TEST_F(ModuleInitializer, StoreThatAnswersWithoutATextCountsAsUnknown) {
    fake.answersWithoutText = true;
    EXPECT_EQ(module.get_resource_string("global.UNIT_NAME_METRE"), "");
    EXPECT_EQ(module.get_resource_string("global.UNIT_NAME_METRE", "x"), "x");
}
