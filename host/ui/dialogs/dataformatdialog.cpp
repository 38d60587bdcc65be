// The data format dialog.

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <array>

#include "host/db/valueformat.h"
#include "host/ui/dialogs/dataformat.h"
#include "host/ui/dialogs/hostdialog.h"
#include "kd/db/database.h"
#include "kd/db/headervar.h"
#include "kd/ui/hostdialogs.h"
#include "mfc/wnd.h"

namespace kdhost {
namespace {

template <class Value>
struct Choice {
    HostText text;
    Value value;
};

constexpr std::array kDataTypes = {
    Choice<int>{HostText::TypeGeneral, KdValue::kGeneral}, Choice<int>{HostText::TypeText, KdValue::kString},
    Choice<int>{HostText::TypeWhole, KdValue::kLong},      Choice<int>{HostText::TypeDecimal, KdValue::kDouble},
    Choice<int>{HostText::TypeDate, KdValue::kDate},       Choice<int>{HostText::TypePoint, KdValue::kPoint},
};
constexpr std::array kUnitTypes = {
    Choice<int>{HostText::UnitNone, KdValue::kUnitless},
    Choice<int>{HostText::UnitAngle, KdValue::kAngle},
    Choice<int>{HostText::UnitCurrency, KdValue::kCurrency},
    Choice<int>{HostText::UnitPercentage, KdValue::kPercentage},
};

constexpr int kUsualPrecision = 2;
constexpr int kLongestName = 30;  ///< in characters

class DataFormatDialog : public HostDialog {
public:
    DataFormatDialog(const KdValue& sample, const KdDbHeaderVar& header, QWidget* parent)
        : HostDialog("DataFormatDialog", HostText::FormatTitle, parent), m_sample(sample), m_header(header) {
        auto* form = new QFormLayout;
        m_type = addBox(*form, "IDC_DATAFORMAT_TYPE_COMBOBOX", HostText::FormatDataType);
        m_unit = addBox(*form, "IDC_DATAFORMAT_UNIT_COMBOBOX", HostText::FormatUnitType);
        m_format = addBox(*form, "IDC_DATAFORMAT_FORMAT_COMBOBOX", HostText::FormatFormat);
        m_precision = new QSpinBox(this);
        m_precision->setRange(0, kMostDecimals);
        m_precision->setValue(kUsualPrecision);
        nameControl(m_precision, "IDC_DATAFORMAT_PRECISION_SPIN");
        form->addRow(labelFor(m_precision, HostText::FormatPrecision), m_precision);
        m_preview = new QLabel(this);
        nameControl(m_preview, "IDC_DATAFORMAT_PREVIEW_STATIC");
        form->addRow(hostText(HostText::FormatPreview), m_preview);
        content()->addLayout(form);
        addButtons();
        for (const auto& type : kDataTypes) m_type->addItem(hostText(type.text), type.value);
        for (const auto& unit : kUnitTypes) m_unit->addItem(hostText(unit.text), unit.value);
        showValue();
        const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
        connect(m_type, changed, this, [this] { listFormats({}); });
        connect(m_unit, changed, this, [this] { listFormats({}); });
        connect(m_format, changed, this, [this] { showPreview(); });
        connect(m_precision, QOverload<int>::of(&QSpinBox::valueChanged), this, [this] { showPreview(); });
        m_type->setFocus();
    }

    KdValue::DataType type() const { return static_cast<KdValue::DataType>(m_type->currentData().toInt()); }
    /// Only decimal numbers have units.
    KdValue::UnitType unit() const {
        if (type() != KdValue::kDouble) return KdValue::kUnitless;
        return static_cast<KdValue::UnitType>(m_unit->currentData().toInt());
    }
    std::wstring format() const {
        const auto row = static_cast<std::size_t>(m_format->currentIndex());
        return row < m_kinds.size() ? formatCode(m_kinds[row], m_precision->value()) : m_foreign;
    }

private:
    QComboBox* addBox(QFormLayout& form, const char* name, HostText text) {
        auto* box = new QComboBox(this);
        nameControl(box, name);
        // All boxes are as wide as the longest name needs, so that they stay in line whatever is chosen.
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        box->setMinimumContentsLength(kLongestName);
        form.addRow(labelFor(box, text), box);
        return box;
    }

    /// A value without a type may still have a format that tells it: dates come so.
    KdValue::DataType givenType() const {
        const bool tellsDate = !parseValueFormat(m_sample.getFormat()).datePattern.empty();
        return m_sample.dataType() == KdValue::kUnknown && tellsDate ? KdValue::kDate : m_sample.dataType();
    }

    void showValue() {
        const int type = m_type->findData(givenType());
        const int unit = m_unit->findData(m_sample.unitType());
        m_type->setCurrentIndex(type < 0 ? 0 : type);
        m_unit->setCurrentIndex(unit < 0 ? 0 : unit);
        listFormats(std::wstring(m_sample.getFormat()));
    }

    /// A code of another make gets a row of its own at the end and is kept as it is. Without a code the usual
    /// format is chosen.
    void listFormats(const std::optional<std::wstring>& code) {
        const QSignalBlocker quiet(m_format);
        m_unit->setEnabled(type() == KdValue::kDouble);
        m_kinds = formatKinds(type(), unit());
        m_format->clear();
        for (const FormatKind& kind : m_kinds) m_format->addItem(formatName(kind));
        if (code) {
            const std::optional<FormatPlace> place = placeOfFormat(m_kinds, *code);
            m_foreign = *code;
            if (!place) m_format->addItem(codeName(m_foreign));
            m_format->setCurrentIndex(place ? static_cast<int>(place->kind) : m_format->count() - 1);
            if (place && m_kinds[place->kind].hasPrecision) m_precision->setValue(place->precision);
        }
        showPreview();
    }

    void showPreview() {
        const auto row = static_cast<std::size_t>(m_format->currentIndex());
        m_precision->setEnabled(row < m_kinds.size() && m_kinds[row].hasPrecision);
        m_preview->setText(QString::fromStdWString(previewText()));
    }

    /// The given value where it is of the chosen type and can be written, else any value of that type. General
    /// shows whatever was given.
    std::wstring previewText() const {
        const ValueFormat chosen = parseValueFormat(format());
        const bool isGiven = m_sample.dataType() == type() || type() == KdValue::kGeneral;
        const std::optional<std::wstring> given = isGiven ? formattedValue(m_sample, chosen, m_header) : std::nullopt;
        return given ? *given : formattedValue(sampleOf(type()), chosen, m_header).value_or(std::wstring());
    }

    const KdValue& m_sample;
    const KdDbHeaderVar& m_header;
    std::vector<FormatKind> m_kinds;
    std::wstring m_foreign;
    QComboBox* m_type = nullptr;
    QComboBox* m_unit = nullptr;
    QComboBox* m_format = nullptr;
    QSpinBox* m_precision = nullptr;
    QLabel* m_preview = nullptr;
};

}  // namespace
}  // namespace kdhost

int VqFdUiInvokeDataTypeDialog(KdValue*& value, KdDbDatabase* database, CWnd* parent) {
    constexpr int kConfirmed = 0;
    constexpr int kCancelled = 1;
    if (value == nullptr) return kCancelled;
    const KdDbHeaderVar standard;
    const KdDbImpDatabase* internals = KdDbSystemInternals::getImpDatabase(database);
    QWidget* below = parent == nullptr ? nullptr : parent->widget();
    kdhost::DataFormatDialog dialog(*value, internals == nullptr ? standard : internals->headerVar(),
                                    below != nullptr ? below->window() : kdhost::HostDialog::windowBelow());
    if (!dialog.run()) return kCancelled;
    const std::wstring format = dialog.format();
    if (dialog.type() != value->dataType()) value->setDataType(dialog.type());
    value->setUnitType(dialog.unit());
    value->setFormat(format.c_str());
    return kConfirmed;
}
