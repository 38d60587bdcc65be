// The table of the host's commands.

#include "host/app/hostcommands.h"

#include "host/app/commands/blockcommands.h"
#include "host/app/commands/documentcommands.h"
#include "host/app/commands/drawcommands.h"
#include "host/app/commands/exportcommands.h"
#include "host/app/commands/filecommands.h"
#include "host/app/commands/layercommand.h"
#include "host/app/commands/programcommands.h"
#include "host/app/commands/tableimport.h"
#include "host/app/commands/ucscommand.h"
#include "host/app/commands/undocommands.h"
#include "host/app/commands/viewcommands.h"
#include "host/rx/commandstack.h"

namespace kdhost {
namespace {

constexpr const wchar_t* kGroup = L"KD_HOST_COMMANDS";

struct HostCommand {
    const wchar_t* name;
    int flags;
    KdEdCommandFunction function;
};

constexpr int kUsesSelection = KdEdCommandFlag::kUsePickSet;
constexpr int kKeepsSelection = KdEdCommandFlag::kUsePickSet | KdEdCommandFlag::kRedraw;

constexpr HostCommand kCommands[] = {
    {L"BLOCK", kUsesSelection, makeBlock},
    {L"CLOSE", kKeepsSelection, closeDocument},
    {L"DOCUMENT", kKeepsSelection, switchDocument},
    {L"ERASE", kUsesSelection, eraseObjects},
    {L"EXPORTPNG", kKeepsSelection, exportPng},
    {L"EXPORTSVG", kKeepsSelection, exportSvg},
    {L"HELP", kKeepsSelection, showHelp},
    {L"INSERT", 0, insertBlock},
    {L"LANGUAGE", kKeepsSelection, chooseLanguage},
    {L"LAYER", 0, editLayers},
    {L"LINE", 0, drawLines},
    {L"LIST", kUsesSelection, listObjects},
    {L"NEW", kKeepsSelection, newDocument},
    {L"OPEN", kKeepsSelection, openDrawing},
    {L"PRINTPDF", kKeepsSelection, printPdf},
    {L"QUIT", 0, quit},
    {L"REDO", kKeepsSelection, redoStep},
    {L"REGEN", kKeepsSelection, regenerate},
    {L"SAVE", kKeepsSelection, saveDrawing},
    {L"SAVEAS", kKeepsSelection, saveDrawingAs},
    {L"SETVAR", kKeepsSelection, setVariable},
    {L"TABLEIMPORT", 0, importTable},
    {L"U", kKeepsSelection, undoStep},
    {L"UCS", kKeepsSelection, setUserCoordinates},
    {L"UNDO", kKeepsSelection, undoSteps},
    {L"ZOOM", kKeepsSelection, zoom},
};

}  // namespace

void registerHostCommands() {
    for (const HostCommand& command : kCommands) {
        commandStack().addCommand(kGroup, command.name, command.name, command.flags, command.function, nullptr, -1,
                                  nullptr, nullptr);
    }
}

void unregisterHostCommands() {
    commandStack().removeGroup(kGroup);
}

}  // namespace kdhost
