#pragma once

#include "hostkit/XmlIni.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>
#include <string>

/** XML writers and readers of which one operation fails, and what holds whichever of them it is. */
namespace TestSupport {

/** The number of an operation that never comes. */
inline constexpr unsigned long NoOperation = std::numeric_limits<unsigned long>::max();

/** Whether the operations behind the one that fails work again. */
enum TFailure { AloneFails, AllBehindFail };

/** Operations of a writer or reader, counted from 0, of which one fails, or that one and all behind it. */
class TFailingOperation {
public:
    TFailingOperation(unsigned long number, TFailure how) : failing(number), failure(how) {}

    /** Counts one operation. @return whether it fails. */
    bool IsNext() {
        unsigned long const number = count++;
        return number == failing || (number > failing && failure == AllBehindFail);
    }

    /** @return whether the operation has failed already. */
    bool IsOver() const { return count > failing; }

    unsigned long Count() const { return count; }

private:
    unsigned long failing;
    TFailure failure;
    unsigned long count = 0;
};

/** Writing a value, opening a section, closing one and switching the attributes are operations. */
class TFailingXmlWriter : public VellariHostKit::TXmlIniWriter {
public:
    explicit TFailingXmlWriter(unsigned long failing = NoOperation, TFailure how = AloneFails)
        : operation(failing, how) {}

    unsigned long Operations() const { return operation.Count(); }

    /** @return the keys that were written and the names of the sections that were opened after the failure. */
    std::string const& WrittenAfterwards() const { return afterwards; }

    unsigned long BeginSection(std::string const& name) override {
        return IsRefused("<" + name) ? 0 : TXmlIniWriter::BeginSection(name);
    }

    /** A section that can't be closed well is closed all the same. */
    bool EndSection(unsigned long handle) override {
        bool const isFailing = operation.IsNext();
        return TXmlIniWriter::EndSection(handle) && !isFailing;
    }

    void SetAttributeMode(bool on) override {
        TXmlIniWriter::SetAttributeMode(on);
        if (operation.IsNext()) {
            throw std::runtime_error("attributes can't be switched");
        }
    }

protected:
    bool WriteText(std::string const& key, std::string const& text) override {
        return !IsRefused(key) && TXmlIniWriter::WriteText(key, text);
    }

    unsigned long BeginSectionCompact(std::string const& name) override {
        return IsRefused("<" + name) ? 0 : TXmlIniWriter::BeginSectionCompact(name);
    }

private:
    bool IsRefused(std::string const& what) {
        if (operation.IsOver()) {
            afterwards += what + " ";
        }
        return operation.IsNext();
    }

    TFailingOperation operation;
    std::string afterwards;
};

/** Entering a section that is there and leaving one are operations. */
class TFailingXmlReader : public VellariHostKit::TXmlIniReader {
public:
    explicit TFailingXmlReader(std::string const& document, unsigned long failing = NoOperation,
                               TFailure how = AloneFails)
        : operation(failing, how) {
        LoadString(document);
    }

    unsigned long Operations() const { return operation.Count(); }

    /** @return the number of sections that were entered and not left. */
    unsigned long Depth() const { return depth; }

    unsigned long EnterSection(unsigned long item) override {
        bool const isRefused = IsSection(item) && operation.IsNext();
        unsigned long const handle = isRefused ? 0 : TXmlIniReader::EnterSection(item);
        depth += handle != 0;
        return handle;
    }

    /** A section that can't be left well is left all the same. */
    bool LeaveSection(unsigned long handle) override {
        bool const isFailing = operation.IsNext();
        bool const isLeft = TXmlIniReader::LeaveSection(handle);
        depth -= isLeft;
        return isLeft && !isFailing;
    }

    unsigned long EnterSectionE(unsigned long item) override {
        unsigned long const handle = EnterSection(item);
        return handle != 0 ? handle : throw std::runtime_error("the section can't be entered");
    }

private:
    TFailingOperation operation;
    unsigned long depth = 0;
};

/**
 * Whichever operation of its writer fails, alone or with all behind it, `save` says so, writes nothing more and
 * leaves no section open.
 */
inline void ExpectToldWriteFailures(std::function<bool(TKvXIniWriter*)> const& save) {
    TFailingXmlWriter whole;
    ASSERT_TRUE(save(&whole));
    ASSERT_GT(whole.Operations(), 0u);
    for (unsigned long failing = 0; failing < whole.Operations(); ++failing) {
        for (TFailure const how : {AloneFails, AllBehindFail}) {
            TFailingXmlWriter writer(failing, how);
            EXPECT_FALSE(save(&writer)) << "operation " << failing;
            EXPECT_EQ(writer.WrittenAfterwards(), "") << "operation " << failing;
            EXPECT_NO_THROW(writer.ToString()) << "operation " << failing;
        }
    }
}

/**
 * Whichever section of the document can't be entered or left, alone or with all that follow, `load` says so, by
 * false or by std::runtime_error, and all that it entered is left.
 */
inline void ExpectToldReadFailures(std::string const& document,
                                   std::function<bool(TKvXIniReader*)> const& load) {
    TFailingXmlReader whole(document);
    ASSERT_TRUE(load(&whole)) << document;
    ASSERT_GT(whole.Operations(), 0u);
    for (unsigned long failing = 0; failing < whole.Operations(); ++failing) {
        for (TFailure const how : {AloneFails, AllBehindFail}) {
            TFailingXmlReader reader(document, failing, how);
            bool isLoaded = false;
            try {
                isLoaded = load(&reader);
            } catch (std::runtime_error const&) {
                // As good as false: the caller knows.
            }
            EXPECT_FALSE(isLoaded) << "operation " << failing << " of " << document;
            EXPECT_EQ(reader.Depth(), 0u) << "operation " << failing << " of " << document;
        }
    }
}

} // namespace TestSupport
