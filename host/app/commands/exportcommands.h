// EXPORTPNG, EXPORTSVG and PRINTPDF: pictures of the drawing in files.
#pragma once

namespace kdhost {

void exportPng();
void exportSvg();
void printPdf();

}  // namespace kdhost
