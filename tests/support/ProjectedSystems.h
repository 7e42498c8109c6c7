#pragma once

#include "hostkit/XmlIni.h"
#include "shell/refsystems/MapProjectedReferenceSystem.h"
#include "tests/support/Descriptions.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

/** Live map-projected systems, for tests. */
namespace TestSupport {

using TProjectedSystem = KvRefSystem::TShellMapProjectedReferenceSystem;

/** A map-projected system of a text, whose tree is changed before it is built. */
inline std::unique_ptr<TProjectedSystem> Projected(TProjectedText const& text,
                                                   std::function<void(TStringTree*)> const& change = {}) {
    TStringTree tree;
    FillProjected(&tree, text);
    if (change) {
        change(&tree);
    }
    return std::make_unique<TProjectedSystem>(&tree, nullptr);
}

/** The text with its axes placed. */
inline TProjectedText Placed(TProjectedText text, int flip, int firstSign, int secondSign) {
    text.flip = flip;
    text.firstSign = firstSign;
    text.secondSign = secondSign;
    return text;
}

/** The text on another base. */
inline TProjectedText On(TGeodeticText const& base, TProjectedText text) {
    text.base = base;
    return text;
}

/** A text that holds every parameter, so that any type of projection is described. */
inline TProjectedText OfType(int type) {
    TProjectedText text;
    text.type = type;
    text.parameters = {{6101, "9"},    {6102, "30"}, {6103, "1"}, {6104, "500000"}, {6105, "0"},
                       {6106, "9"},    {6107, "30"}, {6108, "9"}, {6109, "30"},     {6110, "30"},
                       {6111, "1"},    {6112, "0"},  {6113, "0"}, {6114, "20"},     {6115, "40"},
                       {6116, "30"},   {6117, "9"},  {6118, "0"}, {6119, "0"},      {6120, "1"},
                       {6121, "78.5"}, {6122, "1"},  {6201, "2"}, {6202, "North"},  {6203, "North"},
                       {6204, "C"},    {6205, "50"}, {6206, "3"}};
    return text;
}

/** The types of projections that a description may name, in rising order. */
inline constexpr int AllProjectionTypes[] = {1,  2,  3,  4,   5,    6,    7,    8,    9,    10,
                                             11, 12, 13, 14,  15,   16,   17,   21,   22,   23,
                                             24, 25, 26, 101, 1001, 1002, 1003, 1004, 1201, 1313};

/** The XML form of a system. */
inline std::string XmlOf(KvRefSystem::TShellReferenceSystem const& system) {
    VellariHostKit::TXmlIniWriter writer;
    EXPECT_TRUE(system.SaveToXML(&writer));
    return writer.ToString();
}

/** The system of an XML form. */
inline std::unique_ptr<TProjectedSystem> ProjectedFromXml(std::string const& document) {
    VellariHostKit::TXmlIniReader reader;
    reader.LoadString(document);
    return std::make_unique<TProjectedSystem>(&reader, nullptr);
}

/** The document with everything from the first `from` to the end of the next `to` cut out. */
inline std::string Without(std::string document, std::string const& from, std::string const& to) {
    auto const begin = document.find(from);
    auto const end = document.find(to, begin);
    if (begin == std::string::npos || end == std::string::npos) {
        throw std::logic_error("no " + from + " up to " + to);
    }
    return document.erase(begin, end + to.size() - begin);
}

} // namespace TestSupport
