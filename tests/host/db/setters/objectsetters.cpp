// What changes any object, fields and dictionaries.

#include "kd/db/dictionary.h"
#include "kd/db/field.h"
#include "kd/db/line.h"
#include "kd/db/tablestyle.h"
#include "tests/host/db/setters/setters.h"

namespace kdtest {
namespace {

/// Attaches a new field by `attach(field)`.
template <class Attach>
void giveField(Attach attach) {
    auto field = std::make_unique<KdDbField>();
    field->setFieldCode(L"given");
    if (attach(field.get()) == Kdad::eOk) field.release()->close();
}

/// Codes of the fields that hang on the object, by the names that records use.
std::string fields(const KdDbObject& object) {
    const auto* dictionary = kdhost::peek<KdDbDictionary>(object.extensionDictionary());
    std::string all;
    const auto* attached = [&]() -> const KdDbDictionary* {
        if (dictionary == nullptr) return nullptr;
        const std::unique_ptr<KdDbDictionaryIterator> entries(dictionary->newIterator());
        for (; !entries->done(); entries->next()) {
            if (const auto* inner = kdhost::peek<KdDbDictionary>(entries->objectId())) return inner;
        }
        return nullptr;
    }();
    if (attached == nullptr) return object.hasFields() ? "fields" : "none";
    const std::unique_ptr<KdDbDictionaryIterator> entries(attached->newIterator());
    for (; !entries->done(); entries->next()) all += asText(entries->name()) + asText(entries->objectId()) + ' ';
    return all;
}

void addAny(std::vector<Setter>& list) {
    using Object = KdDbObject;
    const auto add = [&](KdDbObjectId SetterWorld::*object, const char* name, auto set, auto show,
                         std::string variant = {}) {
        list.push_back(setterOf<Object>(object, name, set, show, CellLock::None, std::move(variant)));
    };
    add(
        &SetterWorld::line, "setOwnerId", [](Object& o, SetterWorld& w) { o.setOwnerId(w.database.paperSpaceId()); },
        [](const Object& o) { return o.ownerId(); });
    add(
        &SetterWorld::line, "erase", [](Object& o, auto&) { o.erase(); }, [](const Object& o) { return o.isErased(); });
    add(
        &SetterWorld::table, "erase", [](Object& o, auto&) { o.erase(); }, [](const Object& o) { return o.isErased(); },
        "table");
    add(
        &SetterWorld::style, "erase", [](Object& o, auto&) { o.erase(); }, [](const Object& o) { return o.isErased(); },
        "style");
    add(
        &SetterWorld::line, "createExtensionDictionary", [](Object& o, auto&) { o.createExtensionDictionary(); },
        [](const Object& o) { return o.extensionDictionary().isNull(); });
    add(
        &SetterWorld::line, "setField",
        [](Object& o, auto&) { giveField([&](KdDbField* field) { return o.setField(field); }); }, fields);
    add(
        &SetterWorld::mtext, "setField",
        [](Object& o, auto&) { giveField([&](KdDbField* field) { return o.setField(L"NEW", field); }); }, fields,
        "named");
    add(
        &SetterWorld::mtext, "setField",
        [](Object& o, auto&) { giveField([&](KdDbField* field) { return o.setField(L"OLD", field); }); }, fields,
        "again");
    add(
        &SetterWorld::mtext, "removeField", [](Object& o, auto&) { o.removeField(L"OLD"); }, fields);
    add(
        &SetterWorld::line, "copyFrom",
        [](Object& o, auto&) {
            const KdDbLine source({3, 4, 5}, {6, 7, 8});
            o.copyFrom(&source);
        },
        [](const Object& o) { return static_cast<const KdDbLine&>(o).startPoint(); });
}

void addField(std::vector<Setter>& list) {
    using Field = KdDbField;
    const auto add = [&](const char* name, auto set, auto show, std::string variant = {}) {
        list.push_back(setterOf<Field>(&SetterWorld::field, name, set, show, CellLock::None, std::move(variant)));
    };
    const auto code = [](const Field& f) { return f.getFieldCode(Field::kFieldCode); };
    add(
        "setFieldCode", [](Field& f, auto&) { f.setFieldCode(L"another code"); }, code);
    add(
        "setFieldCode",
        [](Field& f, auto&) {
            KdArray<Field*> children;
            auto child = std::make_unique<Field>();
            child->setFieldCode(L"child");
            children.append(child.get());
            if (f.setFieldCode(L"%<\\_FldIdx 0>%", Field::kTextField, &children) == Kdad::eOk) {
                child.release()->close();
            }
        },
        [](const Field& f) { return f.childCount(); }, "children");
    add(
        "setEvaluationOption", [](Field& f, auto&) { f.setEvaluationOption(Field::kDisable); },
        [](const Field& f) { return int(f.evaluationOption()); });
    add(
        "setField", [](Field& f, auto&) { giveField([&](Field* field) { return f.setField(L"", field); }); },
        [](const Field& f) { return f.childCount(); });
}

void addDictionary(std::vector<Setter>& list) {
    using Dictionary = KdDbDictionary;
    const auto entries = [](const Dictionary& d) {
        const std::unique_ptr<KdDbDictionaryIterator> each(d.newIterator());
        std::string all;
        for (; !each->done(); each->next()) all += asText(each->name()) + asText(each->objectId()) + ' ';
        return all;
    };
    const auto add = [&](const char* name, auto set, std::string variant = {}) {
        list.push_back(
            setterOf<Dictionary>(&SetterWorld::dictionary, name, set, entries, CellLock::None, std::move(variant)));
    };
    const auto put = [](Dictionary& d, const wchar_t* name) {
        auto style = std::make_unique<KdDbTableStyle>();
        KdDbObjectId id;
        if (d.setAt(name, style.get(), id) == Kdad::eOk) style.release()->close();
    };
    add("setAt", [=](Dictionary& d, auto&) { put(d, L"Wide"); });
    add(
        "setAt", [=](Dictionary& d, auto&) { put(d, L"Narrow"); }, "again");
    add("setName", [](Dictionary& d, auto&) { d.setName(L"Narrow", L"Slim"); });
    add(
        "remove", [](Dictionary& d, auto&) { d.remove(L"Narrow"); }, "name");
    add(
        "remove", [](Dictionary& d, SetterWorld& w) { d.remove(w.style); }, "id");
}

}  // namespace

void addObjectSetters(std::vector<Setter>& list) {
    addAny(list);
    addField(list);
    addDictionary(list);
}

}  // namespace kdtest
