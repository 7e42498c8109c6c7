#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace VellariHostKit {

/**
 * The texts that modules show, by language, module and key.
 *
 * A store begins with the texts that the kit carries, in English ("en") and Russian ("ru"), and in English;
 * files may add texts, languages and modules or replace texts. A text that the chosen language lacks is the
 * English one. The address of a text stays valid, with the same text, for the life of the store, also after
 * another language is chosen or the text is replaced. All operations may be called from several threads.
 *
 * The form of the file stands at the head of `hostkit/resources/texts.txt`.
 */
class TResourceStore {
public:
    /** A store with the kit's own texts. */
    TResourceStore();
    ~TResourceStore();
    TResourceStore(TResourceStore const&) = delete;
    TResourceStore& operator=(TResourceStore const&) = delete;

    /** @return the store that `LoadResString` asks; it lives as long as the process. */
    static TResourceStore& Process();

    /**
     * Adds the texts of a file.
     * @throws std::runtime_error that names the file, and the line of a mistake; the store is then unchanged.
     */
    void LoadFile(std::string const& path);

    /**
     * Adds texts. @param source what errors call it.
     * @throws std::runtime_error that names the source and the line of a mistake; the store is then
     *         unchanged.
     */
    void LoadText(std::string_view text, std::string const& source);

    /** Chooses the language. @throws std::runtime_error for one without texts here; nothing changes then. */
    void SetLanguage(std::string const& language);

    /** @return the chosen language. */
    std::string Language() const;

    /** @return the languages that have texts, in alphabetical order. */
    std::vector<std::string> Languages() const;

    /** @return the text of a key, or null. */
    std::string const* Find(std::string const& module, std::string const& key) const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace VellariHostKit
