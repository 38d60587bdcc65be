// Fields of a text on their way into the editor and back.

#include "host/ui/inplaceeditor/fieldtext.h"

#include "host/db/fieldevaluation.h"
#include "host/db/fieldstate.h"
#include "host/ui/inplaceeditor/richdocument.h"
#include "kd/db/formula.h"
#include "kd/db/mtext.h"

namespace kdhost {
namespace {

constexpr const wchar_t* kTextField = L"TEXT";

/// A code that begins with a backslash names an evaluator and is one field as a whole.
bool isOneField(const std::wstring& code) {
    return !code.empty() && code.front() == L'\\';
}

std::wstring mark(int child) {
    return L"%<\\_FldIdx " + std::to_wstring(child) + L">%";
}

}  // namespace

FieldText::FieldText(KdDbMText& text) : m_text(text) {
    KdDbField* whole = nullptr;
    if (text.getField(kTextField, whole, KdDb::kForRead) != Kdad::eOk) {
        m_contents = text.contents();
        return;
    }
    read(*whole);
    whole->close();
}

FieldText::~FieldText() = default;

void FieldText::read(const KdDbField& whole) {
    const std::wstring code = whole.getFieldCode(KdDbField::kFieldCode).str();
    if (isOneField(code)) {
        m_contents = keep(std::unique_ptr<KdDbField>(whole.clone()), m_text.contents());
        return;
    }
    std::size_t done = 0;
    ChildMark found;
    for (std::size_t from = 0; nextChildMark(code, from, found); from = found.at + 1) {
        KdDbField* child = nullptr;
        if (whole.getChild(found.child, child, KdDb::kForRead) != Kdad::eOk) continue;
        m_contents.append(code, done, found.at - done);
        m_contents += keep(std::unique_ptr<KdDbField>(child->clone()), evaluatedText(*child));
        child->close();
        done = found.at + found.length;
    }
    m_contents.append(code, done);
}

wchar_t FieldText::keep(std::unique_ptr<KdDbField> field, std::wstring shown) {
    m_fields.push_back({std::move(field), std::move(shown)});
    return static_cast<wchar_t>(RichDocument::kFirstField + static_cast<wchar_t>(m_fields.size()) - 1);
}

std::wstring FieldText::shown(wchar_t field) const {
    const auto number = static_cast<std::size_t>(field - RichDocument::kFirstField);
    return field >= RichDocument::kFirstField && number < m_fields.size() ? m_fields[number].shown : std::wstring();
}

wchar_t FieldText::add(const std::wstring& expression) {
    KdString code;
    if (expression.empty() || !kdadConvertExprToFieldCode(expression, code)) return 0;
    auto field = std::make_unique<KdDbField>();
    field->setFieldCode((L"\\AcExpr (" + code.str() + L")").c_str());
    field->setEvaluationOption(KdDbField::kAutomatic);
    // It has no value before it stands in its cell.
    return keep(std::move(field), L"=" + code.str());
}

void FieldText::putBack(const std::wstring& contents) {
    std::wstring code;
    KdArray<KdDbField*> children;
    std::vector<std::unique_ptr<KdDbField>> copies;
    for (const wchar_t c : contents) {
        if (c < RichDocument::kFirstField) {
            code += c;
            continue;
        }
        code += mark(children.length());
        const Field& field = m_fields[static_cast<std::size_t>(c - RichDocument::kFirstField)];
        children.append(copies.emplace_back(field.field->clone()).get());
    }
    if (children.length() == 0) {
        m_text.setContents(code.c_str());
        return;
    }
    // A text must not begin as a code that names an evaluator.
    if (isOneField(code)) code = L"{" + code + L"}";
    auto whole = std::make_unique<KdDbField>();
    if (whole->setFieldCode(code.c_str(), KdDbField::kTextField, &children) != Kdad::eOk) return;
    for (auto& copy : copies) (void)copy.release();  // they are the whole's from here on
    if (m_text.setField(kTextField, whole.get()) == Kdad::eOk) (void)whole.release();
}

}  // namespace kdhost
