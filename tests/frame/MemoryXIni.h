#pragma once

#include "frame/imported/XIni.h"

#include <limits>
#include <list>
#include <stdexcept>
#include <string>
#include <vector>

/** A document of sections and values in memory, with a reader and a writer that fail on demand. */
namespace MemoryXIni {

struct TNode {
    std::string name;
    std::string text;
    bool isSection = false;
    std::list<TNode> children;

    /** @return the item number `index`. */
    TNode& At(unsigned long index) {
        auto child = children.begin();
        std::advance(child, static_cast<std::ptrdiff_t>(index));
        return *child;
    }

    /** @return the first item of that name. @throws std::out_of_range without one. */
    TNode& Find(std::string const& wanted) {
        for (TNode& child : children) {
            if (child.name == wanted) {
                return child;
            }
        }
        throw std::out_of_range(wanted);
    }

    /** Takes the first item of that name away. */
    void Drop(std::string const& wanted) {
        for (auto child = children.begin(); child != children.end(); ++child) {
            if (child->name == wanted) {
                children.erase(child);
                return;
            }
        }
        throw std::out_of_range(wanted);
    }
};

/** Sections are handled by their depth, from 1 on. */
class TWriter : public TKvXIniWriter {
public:
    explicit TWriter(TNode* rootNode) : open{rootNode} {}

    /** What happens at the operation number `failingOperation`. */
    enum TFailure : int { None, ReportsFalse, Throws };

    TFailure failure = None;
    unsigned long failingOperation = std::numeric_limits<unsigned long>::max();
    bool raiseReturns = false;

    unsigned long operations = 0;
    unsigned long raised = 0;
    bool isAttributeMode = false;

    /** One word an operation: "@key=text", "key=text", "<name", "<~name" for a compact section, ">". */
    std::vector<std::string> log;

    unsigned long Depth() const { return open.size() - 1; }

    unsigned long BeginSection(std::string const& name) override { return Begin(name, "<"); }

    bool EndSection(unsigned long handle) override {
        if (handle != Depth() || handle == 0) {
            return false;
        }
        open.pop_back();
        log.emplace_back(">");
        return true;
    }

    void EndSectionE(unsigned long handle) override {
        bool const isClosed = EndSection(handle);
        if (IsFailing() || !isClosed) {
            throw std::runtime_error("the section can't be closed");
        }
    }

    void SetAttributeMode(bool on) override {
        isAttributeMode = on;
        if (IsFailing()) {
            throw std::runtime_error("no attributes here");
        }
    }

    void RaiseError() override {
        ++raised;
        if (!raiseReturns) {
            throw std::runtime_error("a write failed");
        }
    }

protected:
    bool WriteText(std::string const& key, std::string const& text) override {
        if (IsFailing()) {
            return false;
        }
        open.back()->children.push_back(TNode{key, text, false, {}});
        log.push_back((isAttributeMode ? "@" : "") + key + "=" + text);
        return true;
    }

    unsigned long BeginSectionCompact(std::string const& name) override { return Begin(name, "<~"); }

private:
    bool IsFailing() {
        if (++operations != failingOperation || failure == None) {
            return false;
        }
        if (failure == Throws) {
            throw 17; // hosts throw what they like
        }
        return true;
    }

    unsigned long Begin(std::string const& name, char const* sign) {
        if (IsFailing()) {
            return 0;
        }
        open.back()->children.push_back(TNode{name, "", true, {}});
        open.push_back(&open.back()->children.back());
        log.push_back(sign + name);
        return Depth();
    }

    std::vector<TNode*> open;
};

class TReader : public TKvXIniReader {
public:
    explicit TReader(TNode* rootNode) : open{rootNode} {}

    /** Number of the entering, reading or leaving operation that throws. */
    unsigned long failingOperation = std::numeric_limits<unsigned long>::max();
    unsigned long operations = 0;

    unsigned long Depth() const { return open.size() - 1; }

    unsigned long ItemCount() override { return open.back()->children.size(); }

    bool IsSection(unsigned long item) override {
        return item < ItemCount() && open.back()->At(item).isSection;
    }

    unsigned long EnterSection(unsigned long item) override {
        if (!IsSection(item)) {
            return 0;
        }
        open.push_back(&open.back()->At(item));
        return Depth();
    }

    bool LeaveSection(unsigned long handle) override {
        if (handle != Depth() || handle == 0) {
            return false;
        }
        open.pop_back();
        return true;
    }

    unsigned long EnterSectionE(unsigned long item) override {
        MayFail();
        unsigned long const handle = EnterSection(item);
        if (handle == 0) {
            throw std::runtime_error("not a section");
        }
        return handle;
    }

    void LeaveSectionE(unsigned long handle) override {
        bool const isLeft = LeaveSection(handle);
        MayFail();
        if (!isLeft) {
            throw std::runtime_error("not the current section");
        }
    }

protected:
    unsigned long FindItem(char const* key, unsigned long from) override {
        unsigned long item = 0;
        for (TNode const& child : open.back()->children) {
            if (item >= from && child.name == key) {
                return item;
            }
            ++item;
        }
        return NotFound;
    }

    bool ReadText(unsigned long item, std::string* text) override {
        MayFail();
        if (item >= ItemCount() || open.back()->At(item).isSection) {
            return false;
        }
        *text = open.back()->At(item).text;
        return true;
    }

private:
    void MayFail() {
        if (++operations == failingOperation) {
            throw 17; // hosts throw what they like
        }
    }

    std::vector<TNode*> open;
};

} // namespace MemoryXIni
