#include "shell/refsystems/DescriptionEditDetail.h"
#include "shell/refsystems/DescriptionTags.h"
#include "shell/refsystems/ReferenceSystem.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace KvRefSystem {

namespace {

std::string GeoidSettingOf(TStringTree const* tree) {
    std::string id;
    if (!tree) {
        return id;
    }
    if (TStringTree const* const setting = tree->FindSubtree(DescriptionTag::Geoid, 0)) {
        setting->GetString(DescriptionTag::GeoidId, 0, &id);
    }
    return id;
}

/** @return how many proxies a description nests, one inside the other or inside a base system. */
int CountNestedProxies(TStringTree const* tree) {
    TStringTree const* const proxy = tree->FindSubtree(DescriptionTag::Proxy, 0);
    TStringTree const* const base = tree->FindSubtree(DescriptionTag::PrimarySystem, 0);
    return std::max(proxy ? 1 + CountNestedProxies(proxy) : 0, base ? CountNestedProxies(base) : 0);
}

/** @throws std::runtime_error: no geoid can be set. */
[[noreturn]] void ThrowSetGeoid() {
    throw std::runtime_error(
        "void TShellReferenceSystem::SetGeoid(TBaseGrid*, const TShellReferenceSystem*)");
}

} // namespace

bool TShellReferenceSystem::SetGeoid(std::string const& id, TBaseGrid* grid,
                                     TShellReferenceSystem const* gridRefSys) {
    bool isPresent = Geoid != nullptr;
    try {
        std::string const newId = id; // the caller's may be the present geoid's own
        if (isPresent) {
            ClearGeoid();
            isPresent = false;
        }
        if (!grid || !gridRefSys) {
            ThrowSetGeoid();
        }
        Geoid = new TShellGeoid(newId, grid, gridRefSys);
        Geoid->Preset(this);
        return InsertGeoidSetting(newId);
    } catch (...) {
        if (isPresent) {
            ClearGeoidSetting(); // a present geoid always goes, and its setting with it
        }
        delete Geoid;
        Geoid = nullptr;
        ThrowSetGeoid();
    }
}

void TShellReferenceSystem::ClearGeoid() {
    delete Geoid;
    Geoid = nullptr;
    ClearGeoidSetting();
}

bool TShellReferenceSystem::InsertGeoidSetting(std::string const& id) {
    if (!SavedTree) {
        return false;
    }
    TStringTree const* const old = SavedTree->FindSubtree(DescriptionTag::Geoid, 0);
    DescriptionEdit::TNewSubtree setting(SavedTree, "Geoid", DescriptionTag::Geoid, 0, old);
    // The caller's id may be the old field's own text, which stands until the new one is kept.
    bool const isInserted = setting.Tree()->InsertString("GeoidID", DescriptionTag::GeoidId, 0, id);
    setting.Keep();
    return isInserted;
}

void TShellReferenceSystem::ClearGeoidSetting() {
    if (SavedTree) {
        SavedTree->DeleteSubtree(DescriptionTag::Geoid, 0);
    }
}

std::string TShellReferenceSystem::GetGeoidSetting() const {
    return GeoidSettingOf(SavedTree);
}

std::string TShellReferenceSystem::GetGeoidID() const {
    return Geoid ? Geoid->Id : std::string();
}

bool TShellReferenceSystem::ContainsGeoid() const {
    return Geoid && !Geoid->Id.empty();
}

TBaseGrid* TShellReferenceSystem::GetGeoidGrid() const {
    return Geoid ? Geoid->Grid : nullptr;
}

TShellReferenceSystem const* TShellReferenceSystem::GetGeoidGridRefSystem() const {
    return Geoid ? Geoid->GridRefSystem : nullptr;
}

bool TShellReferenceSystem::CheckGeoid() const {
    if (!SavedTree || !SavedTree->FindSubtree(DescriptionTag::Geoid, 0)) {
        return GetGeoidID().empty();
    }
    return GetGeoidID() == GetGeoidSetting();
}

bool TShellReferenceSystem::SetProxyRefSys(var_a<TShellReferenceSystem*> proxy) {
    ClearProxyRefSys();
    // A proxy of itself would hold itself alive for ever and describe itself without end.
    if (CoreRefSystem && proxy && proxy->CoreRefSystem && proxy.get() != this) {
        ProxyRefSys = proxy;
        try {
            if (!InsertProxyRefSysToTree(nullptr)) {
                ProxyRefSys.release();
            }
        } catch (...) {
            ProxyRefSys.release(); // what isn't described isn't there
            throw;
        }
    }
    return static_cast<bool>(ProxyRefSys);
}

void TShellReferenceSystem::ClearProxyRefSys() {
    ProxyRefSys.release();
    DeleteProxyRefSysFromTree();
}

void TShellReferenceSystem::DeleteProxyRefSysFromTree() {
    if (SavedTree) {
        SavedTree->DeleteSubtree(DescriptionTag::Proxy, 0);
    }
}

bool TShellReferenceSystem::InsertProxyRefSysToTree(TShellReferenceSystem const*) {
    if (!SavedTree || !ProxyRefSys || !ProxyRefSys->SavedTree || ProxyRefSys.get() == this ||
        CountNestedProxies(ProxyRefSys->SavedTree) >= MaxProxyDepth) {
        DeleteProxyRefSysFromTree();
        return false;
    }
    TStringTree const* const old = SavedTree->FindSubtree(DescriptionTag::Proxy, 0);
    DescriptionEdit::TNewSubtree description(SavedTree, "Proxy reference system", DescriptionTag::Proxy, 0,
                                             old);
    bool const isCopied = ProxyRefSys->SavedTree->CopyTo(description.Tree());
    description.Keep();
    if (!isCopied) {
        DeleteProxyRefSysFromTree();
    }
    return isCopied;
}

var_a<TShellReferenceSystem*> TShellReferenceSystem::GetProxyRefSys() const {
    return ProxyRefSys;
}

bool TShellReferenceSystem::ContainsProxyRefSys() const {
    return static_cast<bool>(ProxyRefSys);
}

std::string TShellReferenceSystem::GetProxyRefSysStr() const {
    std::string text;
    if (ProxyRefSys) {
        ProxyRefSys->WriteToString(text);
    }
    return text;
}

std::string TShellReferenceSystem::GetProxyRefSysName() const {
    return ProxyRefSys ? ProxyRefSys->Name : std::string();
}

std::string TShellReferenceSystem::GetProxyGeoidSetting() const {
    return ProxyRefSys ? GeoidSettingOf(ProxyRefSys->SavedTree) : std::string();
}

std::string TShellReferenceSystem::GetProxyGeoidID() const {
    return ProxyRefSys ? ProxyRefSys->GetGeoidID() : std::string();
}

void TShellReferenceSystem::SetProxyGeoid(std::string const&, TBaseGrid*, TShellReferenceSystem const*) {}

} // namespace KvRefSystem
