// Fields in and out of a file. Where a formula names a table by its id, the file names one of the field's objects by
// its place.

#include <algorithm>

#include "host/db/access.h"
#include "host/db/fieldevaluation.h"
#include "host/db/fieldstate.h"
#include "host/file/checked.h"
#include "host/file/entities.h"
#include "host/file/objects.h"
#include "host/file/record.h"
#include "kd/db/value.h"

namespace kdhost::file {
namespace {

constexpr std::wstring_view kObjectMark = L"%<\\_ObjIdx ";
constexpr std::wstring_view kMarkEnd = L">%";
/// States of a field that has been evaluated, and of one that never was.
constexpr int kEvaluated = 2;
constexpr int kNotEvaluated = 1;

/// "AcExpr" of a code that begins with it; other codes are texts.
std::wstring evaluatorOf(const std::wstring& code) {
    if (!code.starts_with(L'\\')) return L"_text";
    return code.substr(1, code.find_first_of(L" (", 1) - 1);
}

/// The first piece under one code, the rest under another.
void writePieces(TagWriter& out, int firstCode, int restCode, std::wstring_view text) {
    out.text(firstCode, text.substr(0, kLongestPiece));
    for (std::size_t at = kLongestPiece; at < text.size(); at += kLongestPiece) {
        out.text(restCode, text.substr(at, kLongestPiece));
    }
}

class FieldReader {
public:
    FieldReader(LoadContext& context, KdDbObject& field, const FileObject& object)
        : m_context(context),
          m_state(static_cast<KdDbFieldState&>(KdDbObjectAccess::stateForMaker(field))),
          m_reader(context, field, object) {}

    void read() {
        m_reader.subclass("AcDbField");
        const TagSpan tags = m_reader.tags();
        // A state machine: behind the value's begin, codes are those of the value.
        bool inValue = false;
        for (const Tag& tag : tags) {
            m_reader.consume(&tag);
            if (tag.code == 7) inValue = true;
            if (tag.code == 301 || tag.code == 9) m_shown += textOf(tag.value());
            if (!inValue) take(tag);
        }
        m_reader.end();
        require(m_children == m_state.children.size() && m_objectCount == m_objects.size(),
                "a field's parts are not those that it counts");
        m_state.code = codeWithoutMarks(m_code, m_objects);
        m_state.childrenSet = m_state.children.size();
        if (!m_state.isFollowed() && m_isEvaluated) m_state.evaluated = m_shown;
    }

private:
    void take(const Tag& tag) {
        switch (tag.code) {
            case 2:
            case 3:
                m_code += textOf(tag.value());
                break;
            case 90:
                m_children = static_cast<std::size_t>(asked(integerOf(tag)));
                break;
            case 360:
                m_state.children.emplace_back(child(asked(handleOf(tag))));
                break;
            case 97:
                m_objectCount = static_cast<std::size_t>(asked(integerOf(tag)));
                break;
            case 331:
                m_objects.push_back(m_context.idOf(asked(handleOf(tag))));
                break;
            case 91:
                m_state.evaluationOption = static_cast<KdDbField::EvalOption>(asked(integerOf(tag)) & 0xFF);
                break;
            case 95:
                m_isEvaluated = asked(integerOf(tag)) == kEvaluated;
                break;
            default:
                break;
        }
    }

    /// The null id for the handle 0, which stands for a child that is gone.
    KdDbObjectId child(std::uint64_t handle) const {
        const auto* found = m_context.findAs<KdDbField>(handle);
        require(handle == 0 || found != nullptr, "a field's child is missing");
        return found == nullptr ? KdDbObjectId::kNull : found->objectId();
    }

    LoadContext& m_context;
    KdDbFieldState& m_state;
    RecordReader m_reader;
    std::wstring m_code;
    std::wstring m_shown;
    std::size_t m_children = 0;
    std::size_t m_objectCount = 0;
    std::vector<KdDbObjectId> m_objects;
    bool m_isEvaluated = false;
};

}  // namespace

std::wstring codeWithMarks(const std::wstring& code, std::vector<KdDbObjectId>& objects) {
    if (!isFormulaCode(code)) return code;
    return withTableTexts(code, [&](KdDbObjectId id) {
        const auto known = std::find(objects.begin(), objects.end(), id);
        const auto place = known - objects.begin();
        if (known == objects.end()) objects.push_back(id);
        return std::wstring(kObjectMark) + std::to_wstring(place) + std::wstring(kMarkEnd);
    });
}

std::wstring codeWithoutMarks(const std::wstring& code, const std::vector<KdDbObjectId>& objects) {
    std::wstring result;
    std::size_t done = 0;
    for (std::size_t at = code.find(kObjectMark); at != std::wstring::npos; at = code.find(kObjectMark, at + 1)) {
        const std::size_t digits = at + kObjectMark.size();
        const std::size_t end = code.find(kMarkEnd, digits);
        std::size_t place = 0;
        std::size_t digit = digits;
        for (; digit < end && digit < code.size() && digit < digits + 9 && std::iswdigit(wint_t(code[digit])); ++digit)
            place = place * 10 + static_cast<std::size_t>(code[digit] - L'0');
        if (end == std::wstring::npos || digit != end || digit == digits || place >= objects.size()) continue;
        result.append(code, done, at - done).append(std::to_wstring(objects[place].asInteger()));
        done = end + kMarkEnd.size();
    }
    return result.append(code, done);
}

void writeField(SaveContext& context, const KdDbObject& field) {
    const auto& state = stateOf<KdDbFieldState>(field);
    TagWriter& out = context.out;
    std::vector<KdDbObjectId> objects;
    const std::wstring code = codeWithMarks(state.code, objects);
    const std::wstring shown = evaluatedText(static_cast<const KdDbField&>(field));
    const bool isText = !state.code.starts_with(L'\\');
    const bool isEvaluated = isText || state.isFollowed() || state.evaluated.has_value();
    writeIdentity(context, "FIELD", field);
    RecordWriter writer(context, field);
    writer.subclass("AcDbField");
    out.text(1, evaluatorOf(state.code));
    writePieces(out, 2, 3, code);
    out.integer(90, static_cast<std::int64_t>(state.children.size()));
    for (const KdDbFieldChild& child : state.children) out.handle(360, context.handleOf(child.id()));
    out.integer(97, static_cast<std::int64_t>(objects.size()));
    for (const KdDbObjectId object : objects) out.handle(331, context.handleOf(object));
    out.integer(91, state.evaluationOption);
    out.integer(92, 0);
    out.integer(94, 0);
    out.integer(95, isEvaluated ? kEvaluated : kNotEvaluated);
    out.integer(96, 0);
    out.raw(300, "");
    out.integer(93, 0);
    out.raw(7, "ACFD_FIELD_VALUE");
    out.integer(93, 0);
    out.integer(90, shown.empty() ? 0 : KdValue::kString);
    if (!shown.empty()) out.longText(2, 1, shown);
    out.integer(94, 0);
    out.raw(300, "");
    out.text(302, std::wstring_view(shown).substr(0, kLongestPiece));
    out.raw(304, "ACVALUE_END");
    writePieces(out, 301, 9, shown);
    out.integer(98, static_cast<std::int64_t>(shown.size()));
    writer.end();
}

void readField(LoadContext& context, KdDbObject& field, const FileObject& object) {
    FieldReader(context, field, object).read();
    context.fields.push_back(field.objectId());
}

}  // namespace kdhost::file
