// OPEN, SAVE and SAVEAS.

#include "host/app/commands/filecommands.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "host/ad/application.h"
#include "host/ed/commandline.h"
#include "host/ed/words.h"
#include "host/rx/encoding.h"
#include "kd/ed/prompts.h"
#include "kd/ed/resbuf.h"

namespace kdhost {
namespace {

constexpr Words kOpen{L"Open Drawing", L"打开图形"};
constexpr Words kSaveAs{L"Save Drawing As", L"图形另存为"};
constexpr Words kSaved{L"\nSaved: %1", L"\n已保存: %1"};

constexpr Words kOpenElsewhere{L"%1: another open drawing has this file.", L"%1: 另一个打开的图形正在使用此文件。"};

/// What the user reads of a status; the last one is for all others.
struct Trouble {
    Kdad::ErrorStatus status;
    Words text;
};
constexpr Trouble kTroubles[] = {
    {Kdad::eFileNotFound, {L"%1: there is no such file.", L"%1: 没有此文件。"}},
    {Kdad::eFileCorrupt, {L"%1: this is no drawing, or it is damaged.", L"%1: 这不是图形文件，或文件已损坏。"}},
    {Kdad::eFileVersion, {L"%1: the drawing is of a version that can't be read.", L"%1: 无法读取此版本的图形文件。"}},
    {Kdad::eFileAccessError, {L"%1: the file can't be read or written.", L"%1: 无法读取或写入此文件。"}},
};

std::wstring troubleOf(Kdad::ErrorStatus status, const std::wstring& path) {
    const auto* trouble = std::find_if(std::begin(kTroubles), std::end(kTroubles) - 1,
                                       [&](const Trouble& each) { return each.status == status; });
    return trouble->text.with(path);
}

constexpr const wchar_t* kExtension = L"dxf";
constexpr int kForWriting = 1;

struct ReleaseBuffers {
    void operator()(resbuf* buffer) const { kdutRelRb(buffer); }
};

/// Empty when the user cancels.
std::wstring chosenFile(const Words& title, const std::wstring& proposal, int flags) {
    resbuf* result = nullptr;
    const int status = kdedGetFileNavDialog(title.text(), proposal.c_str(), kExtension, title.text(), flags, &result);
    const std::unique_ptr<resbuf, ReleaseBuffers> owned(result);
    return status == RTNORM ? result->resval.rstring : L"";
}

std::wstring withExtension(const std::wstring& path) {
    const std::size_t name = path.rfind(L'/') + 1;
    return path.find(L'.', name) == std::wstring::npos ? path + L"." + kExtension : path;
}

DocumentManager& documents() {
    return Application::current()->documents();
}

/// What went wrong, empty for nothing. Two drawings never have one file: the one would lose what the other saves.
std::wstring troubleOfSaving(Document& document, const std::wstring& path) {
    const Document* owner = documents().documentOfFile(path);
    if (owner != nullptr && owner != &document) return kOpenElsewhere.with(path);
    const Kdad::ErrorStatus status = document.saveAs(path);
    return status == Kdad::eOk ? std::wstring() : troubleOf(status, path);
}

bool save(Document& document, const std::wstring& path) {
    const std::wstring trouble = troubleOfSaving(document, path);
    if (trouble.empty()) {
        commandLine().write(kSaved.with(path));
    } else {
        commandLine().fail(trouble);
    }
    return trouble.empty();
}

bool saveUnderNewName(Document& document) {
    const std::wstring path = chosenFile(kSaveAs, withExtension(document.fileName()), kForWriting);
    return !path.empty() && save(document, withExtension(path));
}

}  // namespace

void openDrawing() {
    const std::wstring path = chosenFile(kOpen, L"", 0);
    if (path.empty()) return;
    const Kdad::ErrorStatus status = documents().openFile(path);
    if (status != Kdad::eOk) commandLine().fail(troubleOf(status, path));
}

bool saveDrawing(Document& document) {
    return document.hasFile() ? save(document, document.fileName()) : saveUnderNewName(document);
}

void saveDrawing() {
    saveDrawing(*documents().current());
}

void saveDrawingAs() {
    saveUnderNewName(*documents().current());
}

std::string openFile(DocumentManager& documents, const std::string& path) {
    const Kdad::ErrorStatus status = documents.openFile(fromUtf8(path));
    return status == Kdad::eOk ? std::string() : toUtf8(troubleOf(status, fromUtf8(path)));
}

std::string saveFile(Document& document, const std::string& path) {
    return toUtf8(troubleOfSaving(document, fromUtf8(path)));
}

}  // namespace kdhost
