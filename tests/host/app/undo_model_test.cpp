// Random changes of a drawing in commands, marks and transactions, against a plain slow model of undo: one that
// keeps the whole drawing as text before and after each step.

#include <functional>
#include <random>
#include <sstream>

#include "host/app/dump/dump.h"
#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/undo.h"
#include "kd/ad/mainapp.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/support/application.h"
#include "tests/support/objects.h"
#include "tests/support/tablebuilder.h"

namespace {

struct ModelStep {
    std::wstring name;
    std::string before;
    std::string after;
};

/// The rules of steps, told as plainly as can be. The caller shows it the drawing as text.
class Model {
public:
    void beginCommand(const std::wstring& name, const std::string& now) {
        if (m_commands++ == 0) m_command = name;
        if (m_commands == 1 && m_marks == 0 && m_transactions == 0) beginStep(name, now);
    }
    void endCommand(const std::string& now) {
        if (--m_commands == 0 && m_marks == 0 && m_transactions == 0) endStep(now);
    }
    void beginMark(const std::wstring& name, const std::string& now) {
        if (m_transactions == 0 && m_marks++ == 0) {
            endStep(now);
            beginStep(name, now);
        }
    }
    void endMark(const std::string& now) {
        if (m_transactions > 0 || --m_marks > 0) return;
        endStep(now);
        if (m_commands > 0) beginStep(m_command, now);
    }
    void beginTransaction(const std::string& now) {
        if (m_transactions++ == 0 && m_commands == 0 && m_marks == 0) beginStep(kdhost::kUnnamedStep, now);
        m_touchedBefore.push_back(m_touched);
    }
    void endTransaction(bool abort, const std::string& now) {
        if (abort) m_touched = m_touchedBefore.back();
        m_touchedBefore.pop_back();
        if (--m_transactions == 0 && m_commands == 0 && m_marks == 0) endStep(now);
    }
    /// The drawing has changed.
    void change(const std::string& now) {
        m_touched = true;
        if (m_isStepOpen) return;
        redo.clear();
        if (!undo.empty()) undo.back().after = now;
    }

    std::vector<std::wstring> names() const {
        std::vector<std::wstring> list;
        for (const ModelStep& step : undo) list.push_back(step.name);
        return list;
    }

    std::vector<ModelStep> undo;
    std::vector<ModelStep> redo;

private:
    void beginStep(const std::wstring& name, const std::string& now) {
        m_isStepOpen = true;
        m_touched = false;
        m_step = {name, now, {}};
    }
    void endStep(const std::string& now) {
        if (std::exchange(m_isStepOpen, false) && m_touched) {
            m_step.after = now;
            undo.push_back(m_step);
            redo.clear();
        }
    }

    int m_commands = 0;
    int m_marks = 0;
    int m_transactions = 0;
    std::wstring m_command;
    bool m_isStepOpen = false;
    bool m_touched = false;
    std::vector<bool> m_touchedBefore;
    ModelStep m_step;
};

/// Everything that lives in a drawing, as text: what the dump tells, and what it leaves out.
class Description {
public:
    explicit Description(kdhost::Document& document) : m_document(document) {}

    std::string text() {
        std::stringstream dump;
        kdhost::writeDump(dump, m_document);
        // Each part of a dump has a line of its own. What is open and what could be undone is not undone.
        for (std::string line; std::getline(dump, line);) {
            if (!line.starts_with("\"undoSteps\"") && !line.starts_with("\"open\"")) m_out << line << '\n';
        }
        for (const auto& [handle, object] : KdDbDatabaseAccess::contents(*m_document.database()).objects) {
            if (!object->isErased()) describe(*object);
        }
        return m_out.str();
    }

private:
    static std::string utf8(const std::wstring& text) { return QString::fromStdWString(text).toStdString(); }

    void describe(const KdDbObject& object) {
        const KdDbObject* owner = kdhost::peekObject(object.ownerId());
        m_out << utf8(object.isA()->name()) << ' ' << object.handle() << " of " << (owner ? owner->handle() : 0);
        if (object.isKindOf(KdDbLine::desc())) {
            const auto& line = static_cast<const KdDbLine&>(object);
            m_out << ' ' << line.startPoint().x << ".." << line.endPoint().x;
        }
        if (object.isKindOf(KdDbTable::desc()))
            m_out << '\n' << kdtest::describe(static_cast<const KdDbTable&>(object));
        if (object.isKindOf(KdDbDictionary::desc())) describe(static_cast<const KdDbDictionary&>(object));
        if (object.isKindOf(KdDbSymbolTable::desc())) describe(static_cast<const KdDbSymbolTable&>(object));
        if (object.isKindOf(KdDbTableStyle::desc())) describe(static_cast<const KdDbTableStyle&>(object));
        m_out << '\n';
    }
    void describe(const KdDbDictionary& dictionary) {
        const std::unique_ptr<KdDbDictionaryIterator> iterator(dictionary.newIterator());
        for (; !iterator->done(); iterator->next()) {
            m_out << ' ' << utf8(iterator->name()) << '=' << kdhost::peekObject(iterator->objectId())->handle();
        }
    }
    void describe(const KdDbSymbolTable& table) {
        KdDbSymbolTableIterator* made = nullptr;
        table.newIterator(made);
        const std::unique_ptr<KdDbSymbolTableIterator> iterator(made);
        for (iterator->start(); !iterator->done(); iterator->step()) {
            KdDbObjectId id;
            iterator->getRecordId(id);
            std::wstring name;
            kdhost::peek<KdDbSymbolTableRecord>(id)->getName(name);
            KdDbObjectId byName;
            table.getAt(name.c_str(), byName);
            m_out << ' ' << utf8(name) << (byName == id ? "" : " (not found by its name)");
        }
    }
    void describe(const KdDbTableStyle& style) {
        KdArray<KdString> names;
        style.getCellStyles(names);
        for (int i = 0; i < names.length(); ++i) {
            m_out << ' ' << utf8(names[i].str()) << ' ' << style.textHeight(names[i].kwszPtr());
        }
    }

    kdhost::Document& m_document;
    std::ostringstream m_out;
};

/// The lines in which two descriptions differ, the first few of them; empty when they are equal.
std::string difference(const std::string& found, const std::string& expected) {
    std::istringstream left(found);
    std::istringstream right(expected);
    std::string result;
    std::string a;
    std::string b;
    for (int shown = 0; shown < 5; a.clear(), b.clear()) {
        const bool isLeft = static_cast<bool>(std::getline(left, a));
        const bool isRight = static_cast<bool>(std::getline(right, b));
        if (!isLeft && !isRight) break;
        if (a == b) continue;
        const auto from =
            static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
        result += "found " + a.substr(from, 100) + ", not " + b.substr(from, 100) + '\n';
        ++shown;
    }
    return result;
}

/// A drawing and its model, changed alike at random.
class Play {
public:
    Play(unsigned seed, kdhost::Document& document)
        : m_random(seed), m_document(document), m_database(*document.database()) {
        for (int i = 0; i < 3; ++i) addLine();
        addTable();
    }

    void act() {
        switch (upTo(9)) {
            case 0:
            case 1:
            case 2:
                return command();
            case 3:
            case 4:
                return mark();
            case 5:
                return transaction();
            case 6:
                return change();
            case 7:
            case 8:
                return undo();
            default:
                return redo();
        }
    }

    void undoAll() {
        while (!m_model.undo.empty()) undo();
    }
    void redoAll() {
        while (!m_model.redo.empty()) redo();
    }

    std::string now() { return Description(m_document).text(); }
    const Model& model() const { return m_model; }
    kdhost::UndoHistory& history() { return *kdhost::undoHistory(m_database); }
    int changes() const { return m_changes; }
    std::string said() const { return m_said; }

private:
    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(m_random); }
    std::wstring unique(const wchar_t* stem) { return stem + std::to_wstring(++m_counter); }
    void say(const std::string& text) { m_said += std::string(m_depth * 2, ' ') + text + '\n'; }

    // ---- what brackets changes

    void body() {
        ++m_depth;
        for (int count = upTo(3); count > 0; --count) {
            const int choice = m_depth > 4 ? 9 : upTo(9);
            if (choice == 0) {
                command();
            } else if (choice < 3) {
                mark();
            } else if (choice < 5) {
                transaction();
            } else {
                change();
            }
        }
        --m_depth;
    }

    void command() {
        const std::wstring name = unique(L"COMMAND");
        say("command");
        m_model.beginCommand(name, now());
        {
            const kdhost::UndoCommandScope scope(&m_database, name);
            body();
        }
        m_model.endCommand(now());
    }

    void mark() {
        const std::wstring name = unique(L"Mark");
        say("mark");
        m_model.beginMark(name, now());
        vqcadMainAppService()->beginCommandMark(name.c_str(), L"");
        body();
        vqcadMainAppService()->endCommandMark();
        m_model.endMark(now());
    }

    void transaction() {
        const std::string before = now();
        const bool abort = upTo(1) == 0;
        say(abort ? "transaction to abort" : "transaction");
        m_model.beginTransaction(before);
        KdDbTransactionManager& manager = *m_document.transactionManager();
        ASSERT_NE(manager.startTransaction(), nullptr);
        ++m_transactions;
        body();
        --m_transactions;
        ASSERT_EQ(abort ? manager.abortTransaction() : manager.endTransaction(), Kdad::eOk);
        m_model.endTransaction(abort, now());
        if (abort) {
            ASSERT_EQ(difference(now(), before), "");
        }
    }

    // ---- undo and redo

    void undo() {
        say("undo");
        const bool isAny = !m_model.undo.empty();
        ASSERT_EQ(history().undo(), isAny ? Kdad::eOk : Kdad::eNotApplicable);
        if (!isAny) return;
        ASSERT_EQ(difference(now(), m_model.undo.back().before), "");
        m_model.redo.push_back(m_model.undo.back());
        m_model.undo.pop_back();
    }

    void redo() {
        say("redo");
        const bool isAny = !m_model.redo.empty();
        ASSERT_EQ(history().redo(), isAny ? Kdad::eOk : Kdad::eNotApplicable);
        if (!isAny) return;
        ASSERT_EQ(difference(now(), m_model.redo.back().after), "");
        m_model.undo.push_back(m_model.redo.back());
        m_model.redo.pop_back();
    }

    // ---- changes; each either changes what the description tells or touches nothing

    void change() {
        using Change = void (Play::*)();
        static constexpr Change kChanges[] = {
            &Play::addLine,   &Play::stretchLine,    &Play::eraseEntity, &Play::addTable,  &Play::editTable,
            &Play::editTable, &Play::editTable,      &Play::addLayer,    &Play::editLayer, &Play::addStyle,
            &Play::editStyle, &Play::editDictionary, &Play::editSettings};
        const std::string before = now();
        (this->*kChanges[upTo(static_cast<int>(std::size(kChanges)) - 1)])();
        const std::string after = now();
        if (before == after) return;
        ++m_changes;
        say("change: " + difference(after, before));
        m_model.change(after);
    }

    /// Opens an object for a change: through a transaction where one runs, now and then.
    template <class T>
    void edit(KdDbObjectId id, const std::function<void(T&)>& change) {
        KdDbObject* object = nullptr;
        const bool bound = m_transactions > 0 && upTo(1) == 0;
        if (bound) {
            KdDbTransaction* top = m_document.transactionManager()->topTransaction();
            if (top->getObject(object, id, KdDb::kForWrite) != Kdad::eOk) return;
            return change(static_cast<T&>(*object));
        }
        if (kddbOpenObject(object, id, KdDb::kForWrite) != Kdad::eOk) return;
        change(static_cast<T&>(*object));
        object->close();
    }

    template <class T>
    KdDbObjectId anyOf() {
        std::vector<KdDbObjectId> found;
        for (const auto& [handle, object] : KdDbDatabaseAccess::contents(m_database).objects) {
            if (!object->isErased() && object->isKindOf(T::desc())) found.push_back(object->objectId());
        }
        return found.empty() ? KdDbObjectId::kNull
                             : found[static_cast<std::size_t>(upTo(static_cast<int>(found.size()) - 1))];
    }

    void append(KdDbEntity* entity) {
        bool isAdded = false;
        edit<KdDbBlockTableRecord>(m_database.modelSpaceId(), [&](KdDbBlockTableRecord& space) {
            isAdded = space.appendKdDbEntity(entity) == Kdad::eOk;
        });
        if (isAdded) {
            handOver(*entity);
        } else {
            delete entity;
        }
    }
    /// A new object is closed, or given to the transaction.
    void handOver(KdDbObject& object) {
        if (m_transactions > 0 && upTo(1) == 0) {
            m_document.transactionManager()->addNewlyCreatedDBRObject(&object, true);
        } else {
            object.close();
        }
    }

    void addLine() { append(new KdDbLine({0.0, 0.0, 0.0}, {1000.0 + ++m_counter, 0.0, 0.0})); }
    void stretchLine() {
        edit<KdDbLine>(anyOf<KdDbLine>(), [&](KdDbLine& line) { line.setEndPoint({1000.0 + ++m_counter, 1.0, 0.0}); });
    }
    void eraseEntity() {
        edit<KdDbEntity>(anyOf<KdDbEntity>(), [](KdDbEntity& entity) { entity.erase(); });
    }
    void addTable() {
        auto table = kdtest::TableBuilder(upTo(3) + 1, upTo(3) + 1).style(m_database.tablestyle()).fill().build();
        append(table.release());
    }

    void editTable() {
        edit<KdDbTable>(anyOf<KdDbTable>(), [&](KdDbTable& table) {
            const int rows = table.numRows();
            const int columns = table.numColumns();
            const int row = upTo(rows - 1);
            const int column = upTo(columns - 1);
            switch (upTo(9)) {
                case 0:
                    if (rows < 9) table.insertRowsAndInherit(row, row, upTo(1) + 1);
                    return;
                case 1:
                    if (columns < 9) table.insertColumnsAndInherit(column, column, 1);
                    return;
                case 2:
                    return table.deleteRows(row, 1);
                case 3:
                    return table.deleteColumns(column, 1);
                case 4:
                    return table.mergeCells(row, upTo(rows - 1), column, upTo(columns - 1));
                case 5:
                    return table.unmergeCells(0, rows - 1, 0, columns - 1);
                case 6:
                    return table.setTextHeight(row, column, ++m_counter);
                case 7:
                    return table.setColumnWidth(column, ++m_counter);
                default:
                    return table.setTextString(row, column, unique(L"text ").c_str());
            }
        });
    }

    void addLayer() {
        auto record = std::make_unique<KdDbLayerTableRecord>();
        record->setName(unique(L"layer").c_str());
        bool isAdded = false;
        edit<KdDbSymbolTable>(m_database.layerTableId(), [&](KdDbSymbolTable& layers) {
            KdDbObjectId id;
            isAdded = layers.add(id, record.get()) == Kdad::eOk;
        });
        if (isAdded) handOver(*record.release());
    }
    void editLayer() {
        const KdDbObjectId id = anyOf<KdDbLayerTableRecord>();
        if (upTo(3) == 0) return m_database.setClayer(id);
        edit<KdDbLayerTableRecord>(id, [&](KdDbLayerTableRecord& layer) {
            const int choice = upTo(2);
            ++m_counter;
            if (choice == 0) layer.setColor(KdCmColor::fromRgb(0, m_counter / 256 % 256, m_counter % 256));
            if (choice == 1) layer.setName(unique(L"layer").c_str());
            // The current layer stays: drawings don't work without one.
            if (choice == 2 && m_database.clayer() != layer.objectId()) layer.erase();
        });
    }

    void addStyle() {
        auto style = std::make_unique<KdDbTableStyle>();
        bool isAdded = false;
        edit<KdDbDictionary>(m_database.tableStyleDictionaryId(), [&](KdDbDictionary& styles) {
            KdDbObjectId id;
            isAdded = styles.setAt(unique(L"style").c_str(), style.get(), id) == Kdad::eOk;
        });
        if (isAdded) handOver(*style.release());
    }
    void editStyle() {
        edit<KdDbTableStyle>(anyOf<KdDbTableStyle>(), [&](KdDbTableStyle& style) {
            const int choice = upTo(2);
            if (choice == 0) style.setTextHeight(++m_counter, L"_DATA");
            if (choice == 1) style.createCellStyle(unique(L"cells").c_str(), L"_DATA");
            if (choice == 2) style.renameCellStyle(style.cellStyleName(101).kwszPtr(), unique(L"cells").c_str());
        });
    }
    void editDictionary() {
        edit<KdDbDictionary>(m_database.tableStyleDictionaryId(), [&](KdDbDictionary& styles) {
            const std::unique_ptr<KdDbDictionaryIterator> iterator(styles.newIterator());
            const std::wstring first = iterator->name();
            if (first.starts_with(L"style")) styles.setName(first.c_str(), unique(L"style").c_str());
        });
    }
    void editSettings() {
        m_database.setAngbase(++m_counter);
        m_database.setLunits(upTo(4) + 1);
        const KdDbObjectId style = anyOf<KdDbTableStyle>();
        if (style.isValid()) m_database.setTablestyle(style);
    }

    std::mt19937 m_random;
    kdhost::Document& m_document;
    KdDbDatabase& m_database;
    Model m_model;
    int m_counter = 0;
    int m_transactions = 0;
    int m_changes = 0;
    std::size_t m_depth = 0;
    std::string m_said;
};

class UndoModel : public kdtest::ApplicationTest {};

TEST_F(UndoModel, random_changes_undo_to_the_start_redo_to_the_end_and_both_mixed) {
    int changes = 0;
    std::size_t steps = 0;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Play play(seed, host.documents().openNew());
        for (int action = 0; action < 30; ++action) {
            play.act();
            ASSERT_EQ(play.history().undoSteps(), play.model().names()) << play.said();
            ASSERT_FALSE(HasFatalFailure()) << play.said();
        }
        play.redoAll();
        if (play.model().undo.empty()) continue;
        const std::string start = play.model().undo.front().before;
        const std::string end = play.now();
        steps += play.model().undo.size();
        play.undoAll();
        ASSERT_EQ(difference(play.now(), start), "") << play.said();
        play.redoAll();
        ASSERT_EQ(difference(play.now(), end), "") << play.said();
        ASSERT_FALSE(HasFatalFailure()) << play.said();
        changes += play.changes();
    }
    EXPECT_GT(changes, 500);
    EXPECT_GT(steps, 150u);
}

}  // namespace
