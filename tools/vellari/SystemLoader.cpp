#include "tools/vellari/SystemLoader.h"

#include "tools/vellari/Catalog.h"
#include "tools/vellari/DescriptionCheck.h"
#include "tools/vellari/ToolError.h"
#include "tools/vellari/ZoneDescription.h"
#include "tools/vellari/ZoneShorthand.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <exception>

namespace VellariTool {

namespace {

using namespace KvRefSystem;

/** A description is some kilobytes; what is larger by far is another file. */
constexpr std::size_t longestDescription = 64 * 1024 * 1024;

/** A file descriptor that closes itself. */
class TDescriptor {
public:
    explicit TDescriptor(int descriptor) : file(descriptor) {}
    ~TDescriptor() {
        if (file >= 0) {
            close(file);
        }
    }
    TDescriptor(TDescriptor const&) = delete;
    TDescriptor& operator=(TDescriptor const&) = delete;
    int Get() const { return file; }

private:
    int file;
};

/** Names the entries or the zones that may have been meant. */
[[noreturn]] void FailNoSuchSystem(std::string const& nameOrPath) {
    std::string message = Quoted(nameOrPath) + " is neither a description file nor an entry of the catalogue";
    std::string const zones = SuggestZoneShorthand(nameOrPath);
    if (!zones.empty()) {
        throw TToolError(message + "; " + zones);
    }
    std::vector<std::string> const similar = SimilarCatalogEntries(nameOrPath);
    for (std::size_t i = 0; i < similar.size(); ++i) {
        message += (i == 0 ? "; similar entries: " : ", ") + similar[i];
    }
    throw TToolError(message + (similar.empty() ? "; `vellari list` shows the entries" : ""));
}

/** @return the bytes of a description file. @throws TToolError when there is none or it can't be read. */
std::string ReadDescription(std::string const& path) {
    TDescriptor const file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.Get() < 0 && errno == ENOENT) {
        FailNoSuchSystem(path);
    }
    std::string text;
    bool isRead = file.Get() >= 0;
    while (isRead) {
        constexpr std::size_t block = 64 * 1024;
        std::size_t const length = text.size();
        if (length > longestDescription) {
            throw TToolError(path + " is not a description: it is longer than 64 MiB");
        }
        text.resize(length + block);
        ssize_t const count = read(file.Get(), text.data() + length, block);
        text.resize(length + (count > 0 ? static_cast<std::size_t>(count) : 0));
        if (count == 0) {
            return text;
        }
        isRead = count > 0 || errno == EINTR;
    }
    throw TToolError(path + ": the description can't be read: " + std::strerror(errno));
}

/** @return the system, or null with the reason that the library gives. */
std::unique_ptr<TShellReferenceSystem> TryToBuild(TStringTree* tree, std::string* failure) {
    try {
        std::unique_ptr<TShellReferenceSystem> system(CreateShellReferenceSystem(tree, nullptr));
        if (!system) {
            *failure = "the description has a form that cannot be built";
        }
        return system;
    } catch (std::exception const& caught) {
        *failure = caught.what();
        return nullptr;
    }
}

} // namespace

TLoadedSystem BuildSystem(std::string const& name, std::string text, TSystemUse use) {
    if (std::optional<std::string> const mistake = FindTextMistake(text)) {
        throw TToolError(name + *mistake);
    }
    TStringTree tree;
    try {
        tree.ReadFromString(text.c_str(), nullptr, nullptr);
    } catch (std::bad_alloc const&) {
        throw TToolError(name + " is damaged: a field claims more values than the text holds");
    } catch (std::exception const& caught) {
        throw TToolError(name + " is damaged: " + caught.what());
    }

    TLoadedSystem loaded;
    std::string failure;
    loaded.system = TryToBuild(&tree, &failure);
    if (!loaded.system || use == suTransform) {
        if (std::optional<std::string> const mistake = FindDescriptionMistake(tree, use)) {
            std::optional<int> const line = FindLineIndentedWithBlanks(text);
            throw TToolError(
                name + *mistake +
                (line ? FormatText("; line %d is indented with blanks, but only TABs count", *line) : ""));
        }
    }
    if (!loaded.system) {
        throw TToolError(name + ": " + failure);
    }
    loaded.name = name;
    loaded.text = std::move(text);
    return loaded;
}

TLoadedSystem LoadSystem(std::string const& nameOrPath, TSystemUse use) {
    if (EmbeddedFile const* const entry = FindCatalogEntry(nameOrPath)) {
        return BuildSystem(std::string(entry->name), std::string(entry->text), use);
    }
    if (IsZoneShorthand(nameOrPath)) {
        return BuildSystem(nameOrPath, DescribeZone(ParseZoneShorthand(nameOrPath)), use);
    }
    return BuildSystem(nameOrPath, ReadDescription(nameOrPath), use);
}

} // namespace VellariTool
