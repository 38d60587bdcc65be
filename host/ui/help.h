// Where the pages of the help are.
#pragma once

#include <QString>

namespace kdhost {

/// The folder of the pages; an empty path leaves it to the environment's KDHOST_DOCS, or else to the folder
/// "docs" beside the program or above it.
void setHelpFolder(const QString& folder);
QString helpFolder();

/// The file of a topic, by its name regardless of case; the first page for an unknown or empty one: "index.md"
/// or, without it, the first by name. Of pages of one name the one in the folder of the host's language ("en",
/// "zh_CN") counts, then one that stands in the folder of no language. Empty when there are no pages.
QString helpPage(const QString& topic);

}  // namespace kdhost
