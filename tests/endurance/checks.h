// What has to hold throughout a run. Each check gives an empty text, or what is wrong.
#pragma once

#include <string>

#include "tests/endurance/stand.h"

namespace endurance {

/// The program waits for a command, and nothing is left open by the one before: no object, mark, transaction or window.
std::string nothingIsOpen(const Stand& stand);

/// Every table of the current drawing: its merges, sizes, contents and styles by what the table itself answers.
std::string tablesAreSound(const Stand& stand);

/// The drawing of a document as JSON, without what belongs to the session: variables, selections, the toolbar, the
/// steps of undo. Formulas name tables by their handles in it.
std::string drawingOf(kdhost::Document& document);

/// The whole dump, as `kdhost --dump` writes it; formulas name tables by handles.
std::string dumpOf(kdhost::Document& document);

/// The current drawing, written as a file and read into another document, is what it was.
std::string comesBackFromFile(const Stand& stand);

/// Where two drawings differ; empty when they don't.
std::string difference(const std::string& wanted, const std::string& found);

}  // namespace endurance
