// Commands about the files of drawings.
#pragma once

#include <string>

namespace kdhost {

class Document;
class DocumentManager;

/// OPEN: asks for a file and opens it beside what is open.
void openDrawing();
/// SAVE: writes the drawing into its file; one that has none yet is saved as by SAVEAS.
void saveDrawing();
/// The same for any drawing. False when the user cancels, and, told, when the file can't be written.
bool saveDrawing(Document& document);
/// SAVEAS: asks for a file, which is the drawing's from then on.
void saveDrawingAs();

// For arguments of the program. Empty on success, else what the user reads.
std::string openFile(DocumentManager& documents, const std::string& path);
std::string saveFile(Document& document, const std::string& path);

}  // namespace kdhost
