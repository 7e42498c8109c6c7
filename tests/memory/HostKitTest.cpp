#include "tests/memory/Subjects.h"
#include "tests/memory/Sweep.h"

#include "frame/NumberText.h"
#include "frame/imported/Matrix.h"
#include "frame/imported/OptionTable.h"
#include "frame/imported/SevenParameters.h"
#include "frame/imported/Strings.h"
#include "hostkit/FileText.h"
#include "hostkit/ResourceStore.h"
#include "hostkit/XmlIni.h"
#include "tests/hostkit/TempFolder.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace MemorySweep {
namespace {

using namespace KvRefSystem;
using namespace VellariHostKit;
using LumCommonUtils::T7Params;
using LumCommonUtils::T7ParamsTransform;
using LumCommonUtils::TMatrix;

std::string const longText = "a text that is too long for a string without memory of its own";

std::string const& Description() {
    return WholeSystems().front().text;
}

std::string DescribeTree(TStringTree const& tree) {
    return TestSupport::TextOf(tree);
}

std::string TreeXml() {
    TXmlIniWriter writer;
    return TreeOf(Description())->WriteToXML(&writer) ? writer.ToString() : std::string();
}

/** The root's name and what is in it. */
std::string DescribeReader(TXmlIniReader const& reader) {
    auto& items = const_cast<TXmlIniReader&>(reader); // counting items changes nothing
    return FormatText("%s %lu", reader.RootName().c_str(), items.ItemCount());
}

TEST(HostKitSweep, AStringTreeIsEditedWholeOrNotAtAll) {
    auto const make = [] { return TreeOf(Description()); };
    struct TEdit {
        char const* name;
        bool (*edit)(TStringTree*);
    };
    TEdit const edits[] = {
        {"InsertString", [](TStringTree* tree) { return tree->InsertString(longText, 77, 0, longText); }},
        {"InsertInteger", [](TStringTree* tree) { return tree->InsertInteger(longText, 77, 0, 12345); }},
        {"InsertDouble", [](TStringTree* tree) { return tree->InsertDouble(longText, 77, 0, 1.0 / 3); }},
        {"InsertSubtree", [](TStringTree* tree) { return tree->InsertSubtree(longText, 77, 0); }},
        {"InsertField",
         [](TStringTree* tree) {
             std::string values[3] = {longText, longText, longText};
             return tree->InsertField(longText, 77, 0, values, 3);
         }},
    };
    for (TEdit const& row : edits) {
        Sweep("host kit", Edits<TOwnedTree>(row.name, BadAlloc, make, row.edit, &DescribeTree));
    }
    std::shared_ptr<TStringTree> const source = make();
    TOperation copy = Edits<TOwnedTree>(
        "CopyTo", BadAlloc, [] { return std::make_unique<TOwnedTree>(); },
        [source](TStringTree* target) { return source->CopyTo(target); }, &DescribeTree);
    copy.anyState = true; // what is copied stays
    Sweep("host kit", copy);
}

TEST(HostKitSweep, AStringTreeIsReadWholeOrItSaysSo) {
    TOperation text = Edits<TOwnedTree>(
        "tree from text", BadAlloc, [] { return std::make_unique<TOwnedTree>(); },
        [](TStringTree* tree) {
            tree->ReadFromString(Description().c_str(), nullptr, nullptr);
            return true;
        },
        &DescribeTree);
    text.anyState = true; // what is read stays
    Sweep("host kit", text);

    std::string const document = TreeXml();
    ASSERT_FALSE(document.empty());
    auto const begin = [document] {
        auto const reader = std::make_shared<TXmlIniReader>();
        reader->LoadString(document);
        auto const tree = std::make_shared<TOwnedTree>();
        return TRun{[=] { return tree->ReadFromXML(reader.get(), 0, nullptr) ? Done : False; },
                    [=] { return DescribeTree(*tree); }};
    };
    TOperation xml = {"tree from XML", False, begin};
    xml.anyState = true;
    Sweep("host kit", xml);
}

TEST(HostKitSweep, AStringTreeIsWrittenToXmlWholeOrItSaysSo) {
    std::shared_ptr<TStringTree> const tree = TreeOf(Description());
    auto const begin = [tree] {
        auto const writer = std::make_shared<TXmlIniWriter>();
        auto const isWhole = std::make_shared<bool>(false);
        return TRun{[=] {
                        *isWhole = tree->WriteToXML(writer.get());
                        return *isWhole ? Done : False;
                    },
                    [=] { return *isWhole ? writer->ToString() : std::string("not whole"); }};
    };
    Sweep("host kit", {"tree to XML", False, begin});
}

TEST(HostKitSweep, AnXmlReaderKeepsItsDocument) {
    std::string const document = TreeXml();
    auto const make = [] {
        auto reader = std::make_unique<TXmlIniReader>();
        reader->LoadString("<before><item>1</item></before>");
        return reader;
    };
    Sweep("host kit", Edits<TXmlIniReader>(
                          "LoadString", BadAlloc, make,
                          [&](TXmlIniReader* reader) {
                              reader->LoadString(document);
                              return true;
                          },
                          &DescribeReader));
    Sweep("host kit",
          Makes<TXmlIniReader>(
              "empty reader", BadAlloc, [] { return std::make_unique<TXmlIniReader>(); }, &DescribeReader));
    auto const writer = std::make_shared<TXmlIniWriter>();
    ASSERT_TRUE(TreeOf(Description())->WriteToXML(writer.get()));
    Sweep("host kit", FillsText("ToString", BadAlloc, [writer](std::string* text) {
              *text = writer->ToString();
              return true;
          }));
}

TEST(HostKitSweep, AFileIsWrittenWholeOrStaysAsItWas) {
    TempFolder const folder;
    std::string const path = folder.File("a file with a name that is long enough for memory.txt");
    auto const begin = [&] {
        folder.Put("a file with a name that is long enough for memory.txt", "old");
        return TRun{[&] {
                        WriteWholeFile(path, longText);
                        return Done;
                    },
                    [&] { return TempFolder::Read(path) + std::to_string(folder.FileCount()); }};
    };
    Sweep("host kit", {"WriteWholeFile", BadAlloc | RuntimeError, begin});
    folder.Put("a file with a name that is long enough for memory.txt", longText);
    Sweep("host kit", FillsText("ReadWholeFile", BadAlloc | RuntimeError, [&](std::string* text) {
              *text = ReadWholeFile(path);
              return true;
          }));
}

TEST(HostKitSweep, OptionsStayAsTheyWere) {
    using TText = std::string;
    auto const make = [] {
        auto table = std::make_unique<TKvOptionTable>();
        table->RegisterOption<TText>("an option with a name that needs memory", "before", {});
        return table;
    };
    auto const describe = [](TKvOptionTable const& table) {
        std::string text = table.GetS<TText>("an option with a name that needs memory");
        try {
            text += FormatText(" %d", table.GetS<int>("another option with a name that needs memory"));
        } catch (std::runtime_error const&) {
            text += " and no other";
        }
        return text;
    };
    Sweep("host kit",
          Edits<TKvOptionTable>(
              "RegisterOption", BadAlloc, make,
              [](TKvOptionTable* table) {
                  return table->RegisterOption<int>("another option with a name that needs memory", 7,
                                                    [](TText const&, int const&) {}) > 0;
              },
              describe));
    Sweep("host kit", Edits<TKvOptionTable>(
                          "SetS", BadAlloc, make,
                          [](TKvOptionTable* table) {
                              table->SetS<TText>("an option with a name that needs memory", longText);
                              return true;
                          },
                          describe));
}

TEST(HostKitSweep, ResourcesStayAsTheyWere) {
    auto const make = [] { return std::make_unique<TResourceStore>(); };
    auto const describe = [](TResourceStore const& store) {
        std::string text = store.Language();
        for (std::string const& language : store.Languages()) {
            text += " " + language;
        }
        return text;
    };
    Sweep("host kit", Makes<TResourceStore>("resources", BadAlloc, make, describe));
    Sweep("host kit", Edits<TResourceStore>(
                          "SetLanguage", BadAlloc, make,
                          [](TResourceStore* store) {
                              store->SetLanguage("ru");
                              return true;
                          },
                          describe));
}

TEST(HostKitSweep, MatricesAndSimilaritiesAreCopiedAndSetWholeOrNotAtAll) {
    auto const make = [] {
        auto matrix = std::make_unique<TMatrix>(2, 3);
        matrix->SetElement(1, 2, 5);
        return matrix;
    };
    auto const describe = [](TMatrix const& matrix) {
        return FormatText("%lu %lu %.17lg", matrix.Columns(), matrix.Rows(),
                          matrix.GetElement(matrix.Columns() - 1, matrix.Rows() - 1));
    };
    TMatrix other(3, 2);
    other.SetElement(2, 1, 7);
    Sweep("host kit", Edits<TMatrix>(
                          "matrix assigned", BadAlloc, make,
                          [&](TMatrix* matrix) {
                              *matrix = other;
                              return true;
                          },
                          describe));
    Sweep("host kit", Edits<TMatrix>(
                          "matrix product", BadAlloc, make,
                          [&](TMatrix* matrix) {
                              *matrix = *matrix * other;
                              return true;
                          },
                          describe));
    auto const similarity = [](double shift) {
        auto made = std::make_unique<T7ParamsTransform>();
        made->Initialize(T7Params{0.1, 0.2, 0.3, 0.001, shift, 20, 30});
        return made;
    };
    Sweep("host kit", Edits<T7ParamsTransform>(
                          "Initialize", False | BadAlloc, [similarity] { return similarity(1); },
                          [](T7ParamsTransform* made) {
                              return made->Initialize(T7Params{0.4, 0.5, 0.6, 0.002, 10, 20, 30});
                          },
                          [](T7ParamsTransform const& made) {
                              double point[3] = {};
                              made.DirectTransform(1000, 2000, 3000, &point[0], &point[1], &point[2]);
                              T7Params stored;
                              made.GetParameters(&stored);
                              return FormatText("%.17lg %.17lg %.17lg %.17lg", point[0], point[1], point[2],
                                                stored.wx);
                          }));
}

TEST(HostKitSweep, StringsThrow) {
    Sweep("host kit", FillsText("ssprintf", BadAlloc, [](std::string* text) {
              *text = Orvane::ssprintf("%s %d %s", longText.c_str(), 7, longText.c_str());
              return true;
          }));
    Sweep("host kit", FillsText("trim and tolower", BadAlloc, [](std::string* text) {
              *text = LumCommonUtils::tolower(LumCommonUtils::trim("  " + longText + "  "));
              return true;
          }));
    Sweep("host kit", FillsText("Decode", BadAlloc, [](std::string* text) {
              return LumCommonUtils::Decode(longText + "\\t" + longText, text);
          }));
}

} // namespace
} // namespace MemorySweep
