// The resource module is complete: every text in both languages, every tree translated, reachable by keyboard and
// named for screen readers, every bitmap at three scales.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QXmlStreamReader>
#include <map>
#include <set>

#include "host/win32/texttable.h"
#include "kd/ui/uicreator.h"
#include "tests/support/places.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

const QString kFolder = kdtest::sourcePath("module/resources/");
const QString kPrefix = QStringLiteral(":/TvxTableRes/TvxTableRes/");

QByteArray contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QStringList filesIn(const QString& folder, const QString& pattern) {
    QStringList files;
    QDirIterator found(folder, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) files << found.next();
    files.sort();
    return files;
}

QString baseName(const QString& path) {
    return QFileInfo(path).completeBaseName();
}

kdhost::TextTable texts(const char* language) {
    return kdhost::parseTextTable(
        contentOf(kFolder + QStringLiteral("strings/") + QLatin1String(language) + QStringLiteral(".tsv"))
            .toStdString());
}

std::set<unsigned> numbers(const kdhost::TextTable& table) {
    std::set<unsigned> found;
    for (const auto& [number, text] : table) found.insert(number);
    return found;
}

/// The placeholders of a text, in their order.
QStringList placeholders(const std::wstring& text) {
    static const QRegularExpression pattern(QStringLiteral("%[-+0-9.]*(I64|l|h)*[a-zA-Z%]"));
    QStringList found;
    auto matches = pattern.globalMatch(QString::fromStdWString(text));
    while (matches.hasNext()) found << matches.next().captured();
    return found;
}

TEST(ModuleTexts, Have_the_same_numbers_and_placeholders_in_both_languages) {
    const kdhost::TextTable english = texts("en");
    const kdhost::TextTable chinese = texts("zh_CN");
    ASSERT_GT(english.size(), 20U);
    EXPECT_EQ(numbers(english), numbers(chinese));
    for (const auto& [number, text] : english) {
        const auto other = chinese.find(number);
        if (other == chinese.end()) continue;
        EXPECT_EQ(placeholders(text), placeholders(other->second)) << number;
    }
}

TEST(ModuleTexts, Stand_in_the_order_of_their_numbers_each_once) {
    for (const char* language : {"en", "zh_CN"}) {
        unsigned last = 0;
        const QString path = kFolder + QStringLiteral("strings/%1.tsv").arg(QLatin1String(language));
        for (const QByteArray& line : contentOf(path).split('\n')) {
            if (line.isEmpty() || line.startsWith('#')) continue;
            const unsigned number = line.left(line.indexOf('\t')).toUInt();
            EXPECT_GT(number, last) << language;
            last = number;
        }
    }
}

/// The numbers that the sources load: where they stand in the call, in a field or constant whose name ends in
/// "Text", and in calls of the platform's loader.
std::map<unsigned, QString> loadedNumbers() {
    static const QRegularExpression pattern(
        QStringLiteral("loadText\\(\\s*(\\d+)|\\w*Text\\s*=\\s*(\\d{4})\\b|LoadStringW\\([^;]*?,\\s*(\\d{4})\\s*,"));
    std::map<unsigned, QString> found;
    for (const QString& pattern2 : {QStringLiteral("*.cpp"), QStringLiteral("*.h")}) {
        for (const QString& path : filesIn(kdtest::sourcePath("module"), pattern2)) {
            auto matches = pattern.globalMatch(QString::fromUtf8(contentOf(path)));
            while (matches.hasNext()) {
                const QRegularExpressionMatch match = matches.next();
                found[match.captured(match.lastCapturedIndex()).toUInt()] = path;
            }
        }
    }
    return found;
}

TEST(ModuleTexts, Exist_for_every_number_that_the_sources_load) {
    const kdhost::TextTable english = texts("en");
    const std::map<unsigned, QString> loaded = loadedNumbers();
    for (const unsigned known : {2017U, 2042U, 2043U, 2050U, 2189U}) EXPECT_TRUE(loaded.contains(known)) << known;
    for (const auto& [number, path] : loaded) EXPECT_TRUE(english.contains(number)) << number << path.toStdString();
}

TEST(ModuleTexts, The_prefixes_of_copies_fit_the_proposal) {
    for (const char* language : {"en", "zh_CN"}) {
        const kdhost::TextTable table = texts(language);
        EXPECT_EQ(placeholders(table.at(2042)), QStringList()) << language;
        EXPECT_EQ(placeholders(table.at(2043)), QStringList(QStringLiteral("%d"))) << language;
        // A numbered copy is not taken for a first copy.
        EXPECT_NE(table.at(2043).compare(0, table.at(2042).size(), table.at(2042)), 0) << language;
    }
}

/// An XML element with what stands in it.
struct Element {
    QString tag;
    QXmlStreamAttributes attributes;
    QString text;
    std::vector<Element> children;

    QString attribute(const char* name) const { return attributes.value(QLatin1String(name)).toString(); }
    /// The first child of that tag; an empty element when there is none.
    Element child(const char* name) const {
        for (const Element& candidate : children) {
            if (candidate.tag == QLatin1String(name)) return candidate;
        }
        return {};
    }
};

Element readElement(QXmlStreamReader& reader) {
    Element element{reader.name().toString(), reader.attributes(), {}, {}};
    while (reader.readNext() != QXmlStreamReader::EndElement && !reader.atEnd()) {
        if (reader.isStartElement()) element.children.push_back(readElement(reader));
        if (reader.isCharacters()) element.text += reader.text();
    }
    return element;
}

Element documentOf(const QString& path) {
    QXmlStreamReader reader(contentOf(path));
    reader.readNextStartElement();
    Element root = readElement(reader);
    EXPECT_FALSE(reader.hasError()) << path.toStdString() << ": " << reader.errorString().toStdString();
    return root;
}

/// All elements of a tag below `root`, in the order of the file.
std::vector<Element> elements(const Element& root, const char* tag) {
    std::vector<Element> found;
    for (const Element& child : root.children) {
        if (child.tag == QLatin1String(tag)) found.push_back(child);
        const std::vector<Element> deeper = elements(child, tag);
        found.insert(found.end(), deeper.begin(), deeper.end());
    }
    return found;
}

/// The texts of a tree that are to be translated.
std::set<QString> treeTexts(const Element& tree) {
    std::set<QString> found;
    for (const Element& element : elements(tree, "string")) {
        if (element.attribute("notr") != QLatin1String("true")) found.insert(element.text);
    }
    return found;
}

/// The finished translations of one tree.
std::map<QString, QString> translations(const QString& treeName) {
    std::map<QString, QString> found;
    for (const Element& context : elements(documentOf(kFolder + QStringLiteral("translations/zh_CN.ts")), "context")) {
        if (context.child("name").text != treeName) continue;
        for (const Element& message : elements(context, "message")) {
            const Element translation = message.child("translation");
            if (!translation.attribute("type").isEmpty() || translation.text.isEmpty()) continue;
            found[message.child("source").text] = translation.text;
        }
    }
    return found;
}

QStringList trees() {
    return filesIn(kFolder, QStringLiteral("*.ui"));
}

TEST(ModuleTrees, Are_named_like_their_files_and_their_objects_uniquely) {
    ASSERT_GE(trees().size(), 2);
    for (const QString& path : trees()) {
        const Element tree = documentOf(path);
        const QString name = baseName(path);
        EXPECT_EQ(tree.child("class").text, name);
        EXPECT_EQ(tree.child("widget").attribute("name"), name);
        std::set<QString> names;
        for (const char* tag : {"widget", "layout", "action", "spacer"}) {
            for (const Element& element : elements(tree, tag)) {
                const QString object = element.attribute("name");
                EXPECT_FALSE(object.isEmpty()) << name.toStdString();
                EXPECT_TRUE(names.insert(object).second) << object.toStdString();
            }
        }
    }
}

TEST(ModuleTrees, Have_a_finished_translation_of_every_text_and_no_other) {
    for (const QString& path : trees()) {
        std::set<QString> translated;
        for (const auto& [source, text] : translations(baseName(path))) translated.insert(source);
        EXPECT_EQ(treeTexts(documentOf(path)), translated) << path.toStdString();
    }
}

TEST(ModuleTrees, Translations_belong_to_trees_that_exist) {
    std::set<QString> names;
    for (const QString& path : trees()) names.insert(baseName(path));
    for (const Element& context : elements(documentOf(kFolder + QStringLiteral("translations/zh_CN.ts")), "context")) {
        const QString name = context.child("name").text;
        EXPECT_TRUE(names.contains(name)) << name.toStdString();
    }
}

/// The letter behind a text's mnemonic mark; a null character when it has none.
QChar mnemonic(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("(?<!&)&([^&\\s])"));
    const QRegularExpressionMatch match = pattern.match(text);
    return match.hasMatch() ? match.captured(1).at(0).toUpper() : QChar();
}

/// What a label or a button shows; empty for other widgets.
QString ownText(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return button != nullptr ? button->text() : QString();
}

/// Every dialog of the module, built in one language.
class BuiltTrees : public ModuleResources, public ::testing::WithParamInterface<kdhost::Language> {
protected:
    void SetUp() override {
        ModuleResources::SetUp();
        kdhost::setLanguage(GetParam());
    }

    /// Calls `look` with each dialog that was built and its name.
    void forEachDialog(const std::function<void(const VqUICreator&, const QString&)>& look) {
        for (const QString& path : filesIn(kFolder + QStringLiteral("dialogs"), QStringLiteral("*.ui"))) {
            QWidget parent;
            VqUICreator creator(&parent, QStringLiteral("TvxTableRes/TvxTableRes"), 1);
            ASSERT_TRUE(creator.generate(baseName(path))) << path.toStdString();
            look(creator, baseName(path));
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, BuiltTrees, ::testing::Values(kdhost::Language::English, kdhost::Language::Chinese),
                         [](const auto& info) {
                             return info.param == kdhost::Language::English ? "English" : "Chinese";
                         });

TEST_P(BuiltTrees, Show_their_texts_in_the_language) {
    forEachDialog([](const VqUICreator& creator, const QString& name) {
        std::map<QString, QString> expected = translations(name);
        if (GetParam() == kdhost::Language::English) {
            for (auto& [source, text] : expected) text = source;
        }
        std::set<QString> allowed;
        for (const auto& [source, text] : expected) allowed.insert(text);
        for (const QWidget* widget : creator.widgets()) {
            if (qobject_cast<const QTabBar*>(widget->parentWidget()) != nullptr) continue;  // Qt's own texts
            for (const QString& text : {widget->windowTitle(), widget->accessibleName(), ownText(*widget)}) {
                EXPECT_TRUE(text.isEmpty() || allowed.contains(text)) << text.toStdString();
            }
        }
    });
}

TEST_P(BuiltTrees, Have_a_title_a_single_default_button_and_unique_mnemonics) {
    forEachDialog([](const VqUICreator& creator, const QString& name) {
        const bool isPage = creator.widget(QStringLiteral("IDOK")) == nullptr;
        int defaults = 0;
        std::map<QChar, QString> mnemonics;
        for (const QWidget* widget : creator.widgets()) {
            const auto* push = qobject_cast<const QPushButton*>(widget);
            if (push != nullptr && push->isDefault()) ++defaults;
            const QChar letter = mnemonic(ownText(*widget));
            if (letter.isNull()) continue;
            EXPECT_FALSE(mnemonics.contains(letter)) << name.toStdString() << ": " << widget->objectName().toStdString()
                                                     << " and " << mnemonics[letter].toStdString();
            mnemonics[letter] = widget->objectName();
        }
        EXPECT_EQ(defaults, isPage ? 0 : 1) << name.toStdString();
        EXPECT_TRUE(isPage || !creator.widgets().first()->windowTitle().isEmpty()) << name.toStdString();
    });
}

TEST_P(BuiltTrees, Name_every_control_that_takes_the_focus) {
    forEachDialog([](const VqUICreator& creator, const QString& name) {
        for (const QWidget* widget : creator.widgets()) {
            if ((widget->focusPolicy() & Qt::TabFocus) == 0) continue;
            if (widget->objectName().startsWith(QLatin1String("qt_"))) continue;  // a part of a control of ours
            EXPECT_FALSE(widget->accessibleName().isEmpty() && ownText(*widget).isEmpty())
                << name.toStdString() << ": " << widget->objectName().toStdString();
        }
    });
}

TEST(ModuleTrees, List_every_control_in_the_tab_order) {
    for (const QString& path : filesIn(kFolder + QStringLiteral("dialogs"), QStringLiteral("*.ui"))) {
        const Element tree = documentOf(path);
        std::set<QString> listed;
        for (const Element& stop : elements(tree, "tabstop")) listed.insert(stop.text);
        for (const Element& widget : elements(tree, "widget")) {
            static const std::set<QString> passive = {QStringLiteral("QDialog"),   QStringLiteral("QLabel"),
                                                      QStringLiteral("QGroupBox"), QStringLiteral("QWidget"),
                                                      QStringLiteral("QFrame"),    QStringLiteral("QProgressBar")};
            if (passive.contains(widget.attribute("class"))) continue;
            EXPECT_TRUE(listed.contains(widget.attribute("name"))) << widget.attribute("name").toStdString();
        }
    }
}

using ModuleBitmaps = ModuleResources;

TEST_F(ModuleBitmaps, Come_at_three_scales_with_something_to_see) {
    const QStringList drawings = filesIn(kFolder + QStringLiteral("bitmaps"), QStringLiteral("*.svg"));
    ASSERT_GE(drawings.size(), 14);
    for (const QString& path : drawings) {
        const QImage plain(kPrefix + baseName(path));
        ASSERT_FALSE(plain.isNull()) << path.toStdString();
        for (const auto& [ending, scale] : {std::pair{"", 1}, {"_2X", 2}, {"_3X", 3}}) {
            const QImage bitmap(kPrefix + baseName(path) + QLatin1String(ending));
            EXPECT_EQ(bitmap.size(), plain.size() * scale) << path.toStdString() << ending;
            ASSERT_TRUE(bitmap.hasAlphaChannel());
            int visible = 0;
            for (int y = 0; y < bitmap.height(); ++y) {
                for (int x = 0; x < bitmap.width(); ++x) visible += bitmap.pixelColor(x, y).alpha() > 0 ? 1 : 0;
            }
            EXPECT_GT(visible, bitmap.width()) << path.toStdString() << ending;
            EXPECT_LT(visible, bitmap.width() * bitmap.height()) << path.toStdString() << ending;
        }
    }
}

TEST_F(ModuleBitmaps, Exist_for_every_name_in_the_sources) {
    static const QRegularExpression pattern(QStringLiteral("\"(IDB_\\w+_BMP)\""));
    for (const QString& path : filesIn(kdtest::sourcePath("module"), QStringLiteral("*.cpp"))) {
        auto matches = pattern.globalMatch(QString::fromUtf8(contentOf(path)));
        while (matches.hasNext()) {
            const QString name = matches.next().captured(1);
            EXPECT_TRUE(QFile::exists(kPrefix + name)) << name.toStdString();
        }
    }
}

TEST(ModuleTreesAtLoading, Are_there_just_while_the_module_is_loaded) {
    const QString tree = kPrefix + QStringLiteral("IDD_CREATECELLSTYLE_DIALOG.ui");
    EXPECT_FALSE(QFile::exists(tree));
    const HINSTANCE module = LoadResourceDll(L"TvxTableRes.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_TRUE(QFile::exists(tree));
    EXPECT_TRUE(QFile::exists(kPrefix + QStringLiteral("zh_CN.qm")));
    FreeLibrary(module);
    EXPECT_FALSE(QFile::exists(tree));
}

}  // namespace
}  // namespace kdtest
