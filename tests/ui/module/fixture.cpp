// The shared means of the module's dialog tests.

#include "tests/ui/module/fixture.h"

#include <QApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QProcess>
#include <QResource>
#include <QTest>
#include <QTimer>

namespace kdtest {

void ModuleResources::SetUp() {
    m_resources.emplace();
}

void ModuleResources::TearDown() {
    kdhost::setLanguage(kdhost::Language::English);
    m_resources.reset();
}

namespace {

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(content);
}

}  // namespace

TestResources::TestResources(const std::vector<std::pair<QString, QByteArray>>& files)
    : m_compiled(m_folder.filePath(QStringLiteral("compiled.rcc"))) {
    QByteArray list = "<RCC><qresource prefix=\"/TvxTableRes/TvxTableRes\">";
    for (const auto& [name, content] : files) {
        writeFile(m_folder.filePath(name), content);
        list += "<file>" + name.toUtf8() + "</file>";
    }
    const QString listed = m_folder.filePath(QStringLiteral("list.qrc"));
    writeFile(listed, list + "</qresource></RCC>");
    const QString compiler = QLibraryInfo::location(QLibraryInfo::BinariesPath) + QStringLiteral("/rcc");
    EXPECT_EQ(QProcess::execute(compiler, {QStringLiteral("-binary"), listed, QStringLiteral("-o"), m_compiled}), 0);
    EXPECT_TRUE(QResource::registerResource(m_compiled));
}

TestResources::~TestResources() {
    QResource::unregisterResource(m_compiled);
}

SeenBox pressForBox(KdUiBaseDialog& dialog, int key) {
    SeenBox shown;
    QTimer::singleShot(0, &dialog, [&shown] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr) << "no message box opened";
        shown = look(*box);
        QTest::keyClick(box, Qt::Key_Return);
    });
    pressKey(key);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    return shown;
}

int runModal(KdUiBaseDialog& dialog, const std::function<void()>& act) {
    QTimer::singleShot(0, &dialog, [&] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        act();
        if (!dialog.isVisible()) return;
        ADD_FAILURE() << "the dialog stays open";
        dialog.reject();
    });
    return dialog.DoModal();
}

void pressKey(int key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = QApplication::focusWidget();
    ASSERT_NE(target, nullptr) << "nothing has the focus";
    QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
}

void typeText(const QString& text) {
    QWidget* target = QApplication::focusWidget();
    ASSERT_NE(target, nullptr) << "nothing has the focus";
    for (const QChar character : text) {
        QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
}

void retype(QLineEdit& edit, const QString& text) {
    edit.setFocus();
    edit.selectAll();
    pressKey(Qt::Key_Delete);
    typeText(text);
}

std::string focusName() {
    const QWidget* focused = QApplication::focusWidget();
    return focused == nullptr ? std::string() : focused->objectName().toStdString();
}

}  // namespace kdtest
