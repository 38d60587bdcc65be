// What becomes of changes that aren't saved when a drawing is closed.
#pragma once

namespace kdhost {

class Document;
class DocumentManager;

/// Whether the drawing may be closed. The person at the window is shown a drawing that has changes and asked to save
/// them, to discard them, or not to close it after all; a drawing whose saving fails or is cancelled stays, too. Where
/// nobody can be asked, as while a script runs, it may.
bool mayLoseChanges(Document& document);

/// The same for every open drawing, up to the first that stays.
bool mayLoseChanges(const DocumentManager& documents);

}  // namespace kdhost
