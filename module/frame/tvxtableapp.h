// The table module's application class: its commands, its context menu, its service, its reactor.
#pragma once

#include <memory>

#include "module/frame/tvxapp.h"

class CVqTableUIContext;
class VqTableDocManagerReactor;

/// The group of all commands of the module.
inline constexpr const wchar_t* kTableCommandGroup = L"TVX_TABLE_COMMANDS";

class TvxTableApp : public KdRxTvxApp {
public:
    /// Loads the resource module.
    TvxTableApp();
    ~TvxTableApp();

    int On_kInitAppMsg(void* applicationId) override;
    int On_kUnloadAppMsg(void* argument) override;
    /// The module has no server components.
    void RegisterServerComponents() override {}

    // The commands' handlers. Each runs with the module's resources in place.
    static void TVX_TABLE_COMMANDSTABLE();
    static void TVX_TABLE_COMMANDSTABLE_CMDLINE();
    static void TVX_TABLE_COMMANDSTABLESTYLE();
    static void TVX_TABLE_COMMANDSTABLEDIT();
    static void TVX_TABLE_COMMANDSTABLEEXPORT();
    static void TVX_TABLE_COMMANDSEDITTABLECELL();

private:
    void dropContextMenu();

    std::unique_ptr<CVqTableUIContext> m_contextMenu;
    std::unique_ptr<VqTableDocManagerReactor> m_documentReactor;
};
