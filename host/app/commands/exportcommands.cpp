// EXPORTPNG, EXPORTSVG and PRINTPDF.

#include "host/app/commands/exportcommands.h"

#include <memory>

#include "host/ad/application.h"
#include "host/app/drawingoptions.h"
#include "host/app/window/windowtexts.h"
#include "host/draw/render.h"
#include "host/ed/commandline.h"
#include "host/rx/encoding.h"
#include "kd/ed/prompts.h"
#include "kd/ed/resbuf.h"

namespace kdhost {
namespace {

constexpr int kForWriting = 1;

struct ReleaseBuffers {
    void operator()(resbuf* buffer) const { kdutRelRb(buffer); }
};

/// Empty when the user cancels.
std::wstring chosenFile(const QString& title, const std::wstring& proposal, const wchar_t* extension) {
    resbuf* result = nullptr;
    const int status = kdedGetFileNavDialog(title.toStdWString().c_str(), proposal.c_str(), extension, L"Picture",
                                            kForWriting, &result);
    const std::unique_ptr<resbuf, ReleaseBuffers> owned(result);
    return status == RTNORM ? result->resval.rstring : L"";
}

void writePicture(const TwoLanguages& title, const wchar_t* extension) {
    const Document& document = *Application::current()->documents().current();
    const std::wstring proposal = std::wstring(document.fileName()) + L"." + extension;
    const std::wstring path = chosenFile(title.text(), proposal, extension);
    if (path.empty()) return;
    const std::string error = draw::render(*document.database(), toUtf8(path), drawingOptions());
    if (!error.empty()) return commandLine().fail(fromUtf8(error));
    kdutPrintf(L"\nWritten: %ls", path.c_str());
}

}  // namespace

void exportPng() {
    writePicture({"Export PNG", "输出 PNG"}, L"png");
}

void exportSvg() {
    writePicture({"Export SVG", "输出 SVG"}, L"svg");
}

void printPdf() {
    writePicture({"Print to PDF", "打印到 PDF"}, L"pdf");
}

}  // namespace kdhost
