// A text and the fields in it, as one line of codes in which each field is a character of its own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kd/db/field.h"

class KdDbMText;

namespace kdhost {

class FieldText {
public:
    /// Reads the text, which must outlive this.
    explicit FieldText(KdDbMText& text);
    ~FieldText();

    /// With formatting codes.
    const std::wstring& contents() const { return m_contents; }
    /// What a field shows; empty for a character that is none.
    std::wstring shown(wchar_t field) const;
    /// A new formula, as typed without its equals sign; the character that stands for it, or 0 when it is none.
    wchar_t add(const std::wstring& expression);

    /// Gives the text these contents. Fields whose characters are gone go; without any left the text has plain
    /// contents.
    void putBack(const std::wstring& contents);

private:
    struct Field {
        std::unique_ptr<KdDbField> field;
        std::wstring shown;
    };

    void read(const KdDbField& whole);
    wchar_t keep(std::unique_ptr<KdDbField> field, std::wstring shown);

    KdDbMText& m_text;
    std::wstring m_contents;
    std::vector<Field> m_fields;
};

}  // namespace kdhost
