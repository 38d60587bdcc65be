// Commands and LISP-side functions come and go with the module and with drawings.

#include "module/frame/tvxapp.h"

#include <array>

#include "kd/ed/lispfunctions.h"
#include "module/frame/registryentry.h"

namespace {

/// The frame's buffer for a name that a resource text gives.
using NameBuffer = std::array<wchar_t, 132>;

/// A row with this flag keeps its texts out of the module's resources.
constexpr int kNoResourceInstance = 1 << 21;

/// The row's own name, else that of the resource text, which then stands in the buffer. A text that is missing leaves
/// what stood there before.
const wchar_t* nameOr(const wchar_t* name, HINSTANCE resources, int number, NameBuffer& buffer) {
    if (name != nullptr) return name;
    LoadStringW(resources, static_cast<unsigned>(number), buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

const wchar_t* functionName(const _KFSSYMBOL_ENTRY& row, HINSTANCE resources, NameBuffer& buffer) {
    return nameOr(row.name, resources, row.localNameResource, buffer);
}

}  // namespace

int KdRxTvxApp::On_kInitAppMsg(void* applicationId) {
    const int result = KdRxDbxApp::On_kInitAppMsg(applicationId);
    // Not cleared between rows: a row whose text is missing gets the name of the row before.
    NameBuffer buffer{};
    for (const _TVXCOMMAND_ENTRY* row : commandTable()) {
        if (row == nullptr) continue;
        const wchar_t* localName = nameOr(row->localName, m_resourceInstance, row->localNameResource, buffer);
        HINSTANCE resources = (row->flags & kNoResourceInstance) != 0 ? nullptr : m_resourceInstance;
        commandStack().addCommand(row->group, row->name, localName, row->flags, row->function, row->context, -1,
                                  resources, nullptr);
    }
    return result;
}

int KdRxTvxApp::On_kUnloadAppMsg(void* argument) {
    const int result = KdRxDbxApp::On_kUnloadAppMsg(argument);
    for (const _TVXCOMMAND_ENTRY* row : commandTable()) {
        if (row != nullptr) commandStack().removeCmd(row->group, row->name);
    }
    commandTable().setLogicalLength(0);
    lispFunctionTable().setLogicalLength(0);
    return result;
}

int KdRxTvxApp::On_kLoadDwgMsg(void*) {
    NameBuffer buffer{};
    for (int i = 0; i < lispFunctionTable().length(); ++i) {
        const _KFSSYMBOL_ENTRY* row = lispFunctionTable()[i];
        if (row == nullptr) continue;
        kdedDefun(functionName(*row, m_resourceInstance, buffer), i);
        if (row->registerFunction != 0) kdedRegFunc(row->function, i);
    }
    return 0;
}

int KdRxTvxApp::On_kUnloadDwgMsg(void*) {
    NameBuffer buffer{};
    for (int i = 0; i < lispFunctionTable().length(); ++i) {
        const _KFSSYMBOL_ENTRY* row = lispFunctionTable()[i];
        if (row != nullptr) kdedUndef(functionName(*row, m_resourceInstance, buffer), i);
    }
    return 0;
}

int KdRxTvxApp::On_kInvkSubrMsg(void*) {
    const int code = kdedGetFunCode();
    if (code < 0 || code >= lispFunctionTable().length()) return 0;
    const _KFSSYMBOL_ENTRY* row = lispFunctionTable()[code];
    if (row != nullptr) row->function();
    return 0;
}
