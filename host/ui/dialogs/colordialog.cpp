// The colour dialog: an index colour from the palette, a true colour, or by layer, by block and none.

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <array>

#include "host/ui/colorchoice.h"
#include "host/ui/dialogs/colorpalette.h"
#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/rowsamples.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

constexpr int kBrightest = 255;
constexpr int kForegroundIndex = 7;  ///< stands in for a colour that isn't offered

class ColorDialog : public HostDialog {
public:
    ColorDialog(const KdCmColor& color, bool allowMeta, const KdCmColor& layerColor, QWidget* parent)
        : HostDialog("ColorDialog", HostText::ColorTitle, parent),
          m_color(offersColor(color, allowMeta) ? color : KdCmColor::fromIndex(kForegroundIndex)),
          m_allowMeta(allowMeta),
          m_layerColor(layerColor) {
        m_pages = new QTabWidget(this);
        nameControl(m_pages, "IDC_COLOR_PAGES", hostText(HostText::ColorTitle));
        m_pages->addTab(indexPage(), hostText(HostText::ColorIndexPage));
        m_pages->addTab(truePage(), hostText(HostText::ColorTruePage));
        content()->addWidget(m_pages);
        if (allowMeta) content()->addLayout(metaRow());
        content()->addLayout(sampleRow());
        addButtons();
        m_pages->setCurrentIndex(m_color.isByColor() ? 1 : 0);
        show(m_color);
        m_old->setPixmap(sampleOf(m_color));
        m_pages->currentWidget()->setFocus();
    }

    const KdCmColor& color() const { return m_color; }

private:
    QWidget* indexPage() {
        auto* page = new QWidget(this);
        auto* layout = new QVBoxLayout(page);
        m_palette = new ColorPalette(page, [this](int index) { take(KdCmColor::fromIndex(index)); });
        nameControl(m_palette, "IDC_COLOR_PALETTE", hostText(HostText::ColorPalette));
        m_index = new QLineEdit(page);
        nameControl(m_index, "IDC_COLOR_INDEX_EDIT");
        m_index->setMaxLength(3);
        connect(m_index, &QLineEdit::textChanged, this, [this](const QString& text) { takeIndexText(text); });
        auto* row = new QHBoxLayout;
        row->addWidget(labelFor(m_index, HostText::ColorIndex));
        row->addWidget(m_index);
        row->addStretch();
        layout->addWidget(m_palette);
        layout->addLayout(row);
        layout->addStretch();
        return page;
    }

    QWidget* truePage() {
        constexpr std::array kNames = {"IDC_COLOR_RED_SPIN", "IDC_COLOR_GREEN_SPIN", "IDC_COLOR_BLUE_SPIN"};
        constexpr std::array kTexts = {HostText::ColorRedPart, HostText::ColorGreenPart, HostText::ColorBluePart};
        auto* page = new QWidget(this);
        auto* layout = new QFormLayout(page);
        for (std::size_t i = 0; i < m_parts.size(); ++i) {
            m_parts[i] = new QSpinBox(page);
            m_parts[i]->setRange(0, kBrightest);
            nameControl(m_parts[i], kNames[i]);
            layout->addRow(labelFor(m_parts[i], kTexts[i]), m_parts[i]);
            connect(m_parts[i], QOverload<int>::of(&QSpinBox::valueChanged), this, [this] { takeTrueColor(); });
            // The numbers of the colour at hand, typed again, mean the true colour of its looks.
            connect(m_parts[i], &QSpinBox::editingFinished, this, [this, spin = m_parts[i]] {
                auto* edit = spin->findChild<QLineEdit*>();
                if (!edit->isModified()) return;
                edit->setModified(false);
                takeTrueColor();
            });
        }
        return page;
    }

    QHBoxLayout* metaRow() {
        struct Meta {
            const char* name;
            HostText text;
            KdCmColor color;
        };
        const std::array metas = {
            Meta{"IDC_COLOR_BYLAYER_BUTTON", HostText::ByLayerButton, KdCmColor()},
            Meta{"IDC_COLOR_BYBLOCK_BUTTON", HostText::ByBlockButton, KdCmColor::byBlock()},
            Meta{"IDC_COLOR_NONE_BUTTON", HostText::NoColorButton, KdCmColor::none()},
        };
        auto* row = new QHBoxLayout;
        for (const Meta& meta : metas) {
            QPushButton* button = addButton(row, meta.name, meta.text);
            button->setAutoDefault(false);
            connect(button, &QPushButton::clicked, this, [this, color = meta.color] { take(color); });
        }
        row->addStretch();
        return row;
    }

    QHBoxLayout* sampleRow() {
        auto* row = new QHBoxLayout;
        m_old = new QLabel(this);
        m_new = new QLabel(this);
        m_name = new QLabel(this);
        nameControl(m_name, "IDC_COLOR_NAME_STATIC");
        row->addWidget(new QLabel(hostText(HostText::ColorOld), this));
        row->addWidget(m_old);
        row->addWidget(new QLabel(hostText(HostText::ColorNew), this));
        row->addWidget(m_new);
        row->addWidget(m_name, 1);
        return row;
    }

    /// By layer shows the layer's colour.
    QPixmap sampleOf(const KdCmColor& color) {
        const int height = fontMetrics().height() * 3 / 2;
        return colorSample(nullptr, color.isByLayer() ? m_layerColor : color).pixmap(height * 2, height);
    }

    /// The controls follow the colour; none of them speaks up meanwhile.
    void show(const KdCmColor& color) {
        m_showing = true;
        m_palette->setIndex(color.isByACI() ? color.colorIndex() : 0);
        if (!m_typing) m_index->setText(color.isByACI() ? QString::number(color.colorIndex()) : QString());
        const KdCmColor& parts = color.isByLayer() ? m_layerColor : color;
        m_parts[0]->setValue(parts.red());
        m_parts[1]->setValue(parts.green());
        m_parts[2]->setValue(parts.blue());
        m_new->setPixmap(sampleOf(color));
        m_name->setText(colorName(color));
        m_showing = false;
    }

    void take(const KdCmColor& color) {
        m_color = color;
        m_bad = false;
        show(color);
    }

    void takeIndexText(const QString& text) {
        if (m_showing) return;
        const std::optional<KdCmColor> color = colorOfText(text);
        m_bad = !color || !color->isByACI();
        if (m_bad) return;
        m_typing = true;
        take(*color);
        m_typing = false;
    }

    void takeTrueColor() {
        if (m_showing) return;
        m_color = KdCmColor::fromRgb(m_parts[0]->value(), m_parts[1]->value(), m_parts[2]->value());
        m_bad = false;
        show(m_color);
    }

    bool commit() override {
        if (!m_bad) return true;
        m_pages->setCurrentIndex(0);
        refuse(HostText::ColorBad, m_index);
        m_index->selectAll();
        return false;
    }

    KdCmColor m_color;
    bool m_allowMeta;
    KdCmColor m_layerColor;
    bool m_showing = false;
    bool m_typing = false;
    bool m_bad = false;  ///< the index edit holds what is no index
    QTabWidget* m_pages = nullptr;
    ColorPalette* m_palette = nullptr;
    QLineEdit* m_index = nullptr;
    std::array<QSpinBox*, 3> m_parts{};
    QLabel* m_old = nullptr;
    QLabel* m_new = nullptr;
    QLabel* m_name = nullptr;
};

}  // namespace

}  // namespace kdhost

bool kdedSetColorDialogTrueColor(KdCmColor& color, bool allowMeta, const KdCmColor& layerColor, int) {
    // Caller may give one colour for both.
    const KdCmColor layer = layerColor;
    kdhost::ColorDialog dialog(color, allowMeta, layer, kdhost::HostDialog::windowBelow());
    if (!dialog.run()) return false;
    color = dialog.color();
    return true;
}
