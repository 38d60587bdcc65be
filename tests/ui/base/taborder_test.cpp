// Tab walks through a dialog in the order that its tree tells, wherever the controls stand in the tree.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include "tests/support/places.h"
#include "tests/support/resourcemodule.h"
#include "tests/ui/base/dialog.h"

namespace kdtest {
namespace {

QStringList told(const QString& file) {
    QFile tree(file);
    EXPECT_TRUE(tree.open(QIODevice::ReadOnly)) << file.toStdString();
    QStringList names;
    QXmlStreamReader reader(&tree);
    while (!reader.atEnd()) {
        if (reader.readNextStartElement() && reader.name() == QLatin1String("tabstop"))
            names << reader.readElementText();
    }
    return names;
}

QStringList walked(QWidget& dialog, const QStringList& stops) {
    QStringList names;
    for (QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain()) {
        if (stops.contains(at->objectName())) names << at->objectName();
    }
    return names;
}

TEST(TabOrder, is_that_of_the_tree_in_every_dialog_of_the_module) {
    const ResourceModule resources;
    int trees = 0;
    const QDir folder(sourcePath("module/resources/dialogs"));
    for (const QString& file : folder.entryList({QStringLiteral("*.ui")})) {
        const QStringList stops = told(folder.filePath(file));
        if (stops.isEmpty()) continue;
        KdUiBaseDialog dialog(nullptr);
        const std::string name = QFileInfo(file).baseName().toStdString();
        ASSERT_TRUE(dialog.generateUICtrls("TvxTableRes/TvxTableRes", name.c_str())) << name;
        EXPECT_EQ(walked(dialog, stops).join(QLatin1Char(' ')).toStdString(),
                  stops.join(QLatin1Char(' ')).toStdString())
            << name;
        ++trees;
    }
    EXPECT_EQ(trees, 12);
}

}  // namespace
}  // namespace kdtest
