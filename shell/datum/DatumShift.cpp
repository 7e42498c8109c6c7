#include "shell/datum/DatumShift.h"

#include "frame/imported/XIni.h"
#include "shell/datum/BursaWolfDatumShift.h"
#include "shell/datum/DatumDetail.h"
#include "shell/datum/MolodenskyDatumShift.h"

#include <stdexcept>

namespace KvRefSystem {

namespace {

constexpr int tagTypeTree = 5443;
constexpr int tagType = 5701;
constexpr char const* typeKey = "DatumShiftType";

/** Reads the type from its subtree, which must hang in a tree. @return whether there is one. */
bool ReadType(TStringTree* tree, int* type) {
    if (tree == nullptr) {
        return false;
    }
    TStringTree const* const typeTree = tree->FindSubtree(tagTypeTree, 0);
    return typeTree != nullptr && typeTree->GetInteger(tagType, 0, type) && typeTree->parent != nullptr;
}

/** @return a new shift of the class that `type` selects, made from `source`; null for another type. */
template <class Source>
TShellDatumShift* Build(int type, Source* source) {
    switch (type) {
    case dstMolodensky:
        return new TShellMolodenskyDatumShift(source);
    case dstBursaWolf:
        return new TShellBursaWolfDatumShift(source);
    case dstBursaWolfInvRot:
        return new TShellBursaWolfInvRotDatumShift(source);
    default:
        return nullptr;
    }
}

} // namespace

TShellDatumShift::TShellDatumShift(TStringTree* tree) {
    if (!ReadType(tree, &Type)) {
        throw std::runtime_error("TShellDatumShift::TShellDatumShift(TStringTree *tree)");
    }
}

TShellDatumShift::TShellDatumShift(TKvXIniReader* xml) {
    if (!TShellDatumShift::LoadFromXML(xml)) {
        throw std::runtime_error("TShellDatumShift::TShellDatumShift(TKvXIniReader *xml)");
    }
}

TShellDatumShift::~TShellDatumShift() = default;

bool TShellDatumShift::LoadFromXML(TKvXIniReader* reader) {
    if (reader == nullptr) {
        return false;
    }
    int const type = ReadXmlInt(reader, typeKey, 0);
    if (!(type >= dstMolodensky && type <= dstBursaWolfInvRot)) {
        return false;
    }
    Type = type;
    return true;
}

bool TShellDatumShift::SaveToXML(TKvXIniWriter* writer) const {
    return writer != nullptr && writer->WriteS<int>(typeKey, Type);
}

bool TShellDatumShift::SetNonLinear(bool) {
    return false;
}

TShellDatumShift* CreateShellDatumShift(TStringTree* tree) {
    int type = 0;
    return ReadType(tree, &type) ? Build(type, tree) : nullptr;
}

TShellDatumShift* CreateShellDatumShift(TKvXIniReader* reader) {
    return reader != nullptr ? Build(ReadXmlInt(reader, typeKey, 0), reader) : nullptr;
}

} // namespace KvRefSystem
