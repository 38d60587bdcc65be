// Formulas as typed. What is one, and what one without cells comes to, is told by a plain model: a parser that calls
// itself for whatever stands inside.

#include <cmath>
#include <optional>

#include "host/field/calculation.h"
#include "host/field/expression.h"
#include "kd/db/formula.h"
#include "tests/fuzz/target.h"

using namespace kdhost::field;

namespace {

/// Nothing of a cell is there to be read.
class NoCells final : public Operands {
public:
    const Sheet* sheetOf(std::size_t) const override { return nullptr; }
    const Value& valueOfField(int) const override { return m_none; }
    Value valueOfChild(int) const override { return Value::error(); }

private:
    Value m_none;
};

/// A number, or none for an error. `failed` when the text is no formula.
class Model {
public:
    explicit Model(const std::wstring& text) : m_text(text) {}

    std::optional<double> read() {
        const auto value = sum();
        blanks();
        failed = failed || m_at != m_text.size();
        return value;
    }

    bool failed = false;
    bool readsCells = false;

private:
    using Number = std::optional<double>;

    wchar_t here() const { return m_at < m_text.size() ? m_text[m_at] : L'\0'; }
    void blanks() {
        while (here() == L' ' || (here() >= 9 && here() <= 13) || here() == 0xA0 || here() == 0x3000) ++m_at;
    }
    bool take(const std::wstring& sign) {
        blanks();
        if (m_text.compare(m_at, sign.size(), sign) != 0) return false;
        m_at += sign.size();
        return true;
    }
    std::wstring run(const wchar_t* characters) {
        const std::size_t begin = m_at;
        while (here() != L'\0' && std::wstring(characters).find(here()) != std::wstring::npos) ++m_at;
        return m_text.substr(begin, m_at - begin);
    }
    std::wstring letters() { return run(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"); }
    std::wstring digits() { return run(L"0123456789"); }
    Number fail() {
        failed = true;
        return {};
    }
    static Number finite(double value) { return std::isfinite(value) ? Number(value) : std::nullopt; }

    template <class Operand>
    Number chain(const wchar_t* signs, Operand operand) {
        Number left = (this->*operand)();
        for (blanks(); !failed && here() != L'\0' && std::wstring(signs).find(here()) != std::wstring::npos; blanks()) {
            const wchar_t sign = m_text[m_at++];
            const Number right = (this->*operand)();
            if (!left || !right) {
                left = {};
            } else if (sign == L'^') {
                left = finite(std::pow(*left, *right));
            } else {
                left = finite(sign == L'+'   ? *left + *right
                              : sign == L'-' ? *left - *right
                              : sign == L'*' ? *left * *right
                                             : *left / *right);
            }
        }
        return left;
    }
    Number sum() { return chain(L"+-", &Model::product); }
    Number product() { return chain(L"*/", &Model::power); }
    Number power() { return chain(L"^", &Model::operand); }

    Number operand() {
        if (failed) return {};
        blanks();
        if (take(L"+")) return operand();
        if (take(L"-")) {
            const Number value = operand();
            return value ? finite(0.0 - *value) : Number();
        }
        if (take(L"\\AcExpr")) {
            blanks();
            if (here() != L'(') return fail();
        }
        if (take(L"(")) {
            const Number value = sum();
            return take(L")") ? value : fail();
        }
        if ((here() >= L'0' && here() <= L'9') || here() == L'.') return number();
        if (take(L"%<\\_FldIdx ")) return child();
        return name();
    }
    Number number() {
        std::wstring text = digits();
        bool any = !text.empty();
        if (here() == L'.') {
            ++m_at;
            const std::wstring fraction = digits();
            any = any || !fraction.empty();
            text += L"." + fraction;
        }
        if (!any) return fail();
        const std::size_t behind = m_at;
        if (here() == L'e' || here() == L'E') {
            ++m_at;
            const std::wstring sign = here() == L'-' || here() == L'+' ? std::wstring(1, m_text[m_at++]) : L"";
            const std::wstring exponent = digits();
            if (exponent.empty()) {
                m_at = behind;
            } else {
                text += L"e" + sign + exponent;
            }
        }
        const double value = std::wcstod(text.c_str(), nullptr);
        return std::isfinite(value) ? Number(value) : fail();
    }
    Number child() {
        const std::wstring number = digits();
        readsCells = true;
        const bool closed = m_text.compare(m_at, 2, L">%") == 0;
        m_at += 2;
        // A number of more than six digits names no child.
        return number.empty() || !closed || std::stod(std::string(number.begin(), number.end())) > 1e6 ? fail()
                                                                                                       : Number();
    }
    Number name() {
        const std::size_t begin = m_at;
        const std::wstring word = letters();
        if (!word.empty() && take(L"(")) {
            std::wstring lower;
            for (const wchar_t letter : word) lower += letter < L'a' ? letter + 32 : letter;
            return lower == L"table" ? foreign() : call(lower);
        }
        m_at = begin;
        return reference();
    }
    Number foreign() {
        blanks();
        const std::wstring id = digits();
        if (id.empty() || id.size() > 19 || !take(L")") || !take(L".")) return fail();
        blanks();
        return reference();
    }
    Number reference() {
        readsCells = true;
        if (m_text.compare(m_at, 5, L"#REF!") == 0) {
            m_at += 5;
            return {};
        }
        cell();
        const std::size_t behind = m_at;
        if (take(L":")) {
            blanks();
            cell();
        } else {
            m_at = behind;
        }
        return {};
    }
    void cell() {
        if (here() == L'$') ++m_at;
        const std::wstring column = letters();
        if (here() == L'$') ++m_at;
        const std::wstring row = digits();
        // Places beyond a thousand million are none.
        double place = 0.0;
        for (const wchar_t letter : column) place = place * 26 + ((letter - L'A') % 32 + 1);
        const double number = row.empty() ? 0.0 : std::stod(std::string(row.begin(), row.end()));
        if (column.empty() || place > 1e9 || number < 1.0 || number > 1e9) fail();
    }
    Number call(const std::wstring& function) {
        if (function != L"sum" && function != L"average" && function != L"count") return fail();
        bool error = false;
        double total = 0.0;
        double numbers = 0.0;
        do {
            const Number value = sum();
            error = error || !value;
            if (!value) continue;
            total += *value;
            numbers += 1.0;
        } while (!failed && take(L","));
        if (!take(L")")) return fail();
        if (function == L"count") return numbers;
        if (error) return {};
        return finite(function == L"sum" ? total : total / numbers);
    }

    std::wstring m_text;
    std::size_t m_at = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = kdtest::fuzzText(data, size);
    const Expression parsed = parseExpression(text);
    Model model(text);
    const std::optional<double> expected = model.read();
    kdtest::require(parsed.valid == !model.failed, "not a formula where the model has one, or the other way round",
                    text);
    for (const auto& [reference, piece] : parsed.references) {
        kdtest::require(piece.at + piece.length <= text.size() && piece.length > 0, "a piece outside of the text",
                        text);
    }

    KdString code(L"before");
    const bool converted = kdadConvertExprToFieldCode(KdString(text.c_str()), code);
    kdtest::require(converted || code == KdString(text.c_str()), "changed though it is none", text);
    if (!parsed.valid) return 0;

    kdtest::require(converted, "a formula, and refused as typed", text);
    const Expression again = parseExpression(code.str());
    kdtest::require(again.valid && rewritten(code.str(), again) == code.str(), "not settled once it is written", text);
    kdtest::require(again.references.size() == parsed.references.size(), "other references once written", text);
    for (std::size_t i = 0; i < parsed.references.size(); ++i) {
        kdtest::require(again.references[i].reference == parsed.references[i].reference, "another reference", text);
    }
    if (model.readsCells) return 0;
    const Value value = calculate(parsed, NoCells());
    kdtest::require((value.kind == ValueKind::number) == expected.has_value(), "an error, or none, unlike the model",
                    text);
    kdtest::require(!expected || kdtest::sameBits(value.number, *expected), "another number than the model's", text);
    return 0;
}
