// EXPORTPNG, EXPORTSVG and PRINTPDF.

#include "host/app/commands/exportcommands.h"

#include <memory>

#include "host/ad/application.h"
#include "host/draw/render.h"
#include "host/ed/commandline.h"
#include "host/ed/drawingoptions.h"
#include "host/ed/words.h"
#include "host/rx/encoding.h"
#include "kd/ed/prompts.h"
#include "kd/ed/resbuf.h"

namespace kdhost {
namespace {

constexpr Words kPng{L"Export PNG", L"输出 PNG"};
constexpr Words kSvg{L"Export SVG", L"输出 SVG"};
constexpr Words kPdf{L"Print to PDF", L"打印到 PDF"};
constexpr Words kWritten{L"\nWritten: %1", L"\n已写入: %1"};

constexpr int kForWriting = 1;

struct ReleaseBuffers {
    void operator()(resbuf* buffer) const { kdutRelRb(buffer); }
};

/// Empty when the user cancels.
std::wstring chosenFile(const Words& title, const std::wstring& proposal, const wchar_t* extension) {
    resbuf* result = nullptr;
    const int status =
        kdedGetFileNavDialog(title.text(), proposal.c_str(), extension, L"Picture", kForWriting, &result);
    const std::unique_ptr<resbuf, ReleaseBuffers> owned(result);
    return status == RTNORM ? result->resval.rstring : L"";
}

void writePicture(const Words& title, const wchar_t* extension) {
    const Document& document = *Application::current()->documents().current();
    const std::wstring proposal = std::wstring(document.fileName()) + L"." + extension;
    const std::wstring path = chosenFile(title, proposal, extension);
    if (path.empty()) return;
    const std::string error = draw::render(*document.database(), toUtf8(path), drawingOptions());
    if (!error.empty()) return commandLine().fail(fromUtf8(error));
    commandLine().write(kWritten.with(path));
}

}  // namespace

void exportPng() {
    writePicture(kPng, L"png");
}

void exportSvg() {
    writePicture(kSvg, L"svg");
}

void printPdf() {
    writePicture(kPdf, L"pdf");
}

}  // namespace kdhost
