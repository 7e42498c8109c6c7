#pragma once

#include "hostkit/XmlIni.h"
#include "shell/refsystems/GeocentricReferenceSystem.h"
#include "shell/refsystems/LocalReferenceSystems.h"
#include "shell/refsystems/TopocentricHorizontalReferenceSystem.h"
#include "tests/support/Descriptions.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/** Live systems of the kinds with three coordinates in one linear unit, for tests. */
namespace TestSupport {

using TTreeChange = std::function<void(TStringTree*)>;

/** A system of a text whose tree is changed before it is built. */
template <class System, class Text>
std::unique_ptr<System> BuildFrom(void (*fill)(TStringTree*, Text const&), Text const& text,
                                  TTreeChange const& change) {
    TStringTree tree;
    fill(&tree, text);
    if (change) {
        change(&tree);
    }
    return std::make_unique<System>(&tree, nullptr);
}

inline auto Live(TGeocentricText const& text, TTreeChange const& change = {}) {
    return BuildFrom<KvRefSystem::TShellGeocentricReferenceSystem>(&FillGeocentric, text, change);
}

inline auto Live(TTopocentricText const& text, TTreeChange const& change = {}) {
    return BuildFrom<KvRefSystem::TShellTopocentricHorizontalReferenceSystem>(&FillTopocentric, text, change);
}

inline auto LiveCartesian(TLocalText const& text, TTreeChange const& change = {}) {
    return BuildFrom<KvRefSystem::TShellLocalCartesianReferenceSystem>(&FillLocal, text, change);
}

inline auto LiveCurved(TLocalText const& text, TTreeChange const& change = {}) {
    return BuildFrom<KvRefSystem::TShellLocalCurvedReferenceSystem>(&FillLocal, text, change);
}

/** The system of an XML form. */
template <class System>
std::unique_ptr<System> FromXml(std::string const& document) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(document);
    return std::make_unique<System>(&reader, nullptr);
}

/** The names of the items and sections of a document's outermost level, in their order. */
std::vector<std::string> KeysOf(std::string const& document);

/** The text of an outermost item; "(none)" without it. */
std::string ValueOf(std::string const& document, std::string const& key);

/** The document without an outermost item or section. */
std::string WithoutKey(std::string const& document, std::string const& key);

/** The document with another text of an outermost item. */
std::string WithValue(std::string const& document, std::string const& key, std::string const& value);

/**
 * Fills a chain with a record that can be described but has no core form.
 * @param name of a pairwise chain; empty for the own one.
 */
void AddChainWithoutCoreForm(TStringTree* chain, std::string const& name);

/** Three texts. */
KvRefSystem::TShellCoords Texts(std::string const& first, std::string const& second,
                                std::string const& third);

} // namespace TestSupport
