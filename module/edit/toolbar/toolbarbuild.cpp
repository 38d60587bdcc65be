// Building of the toolbar from its table: images cut from a strip, buttons, lists and gaps.

#include <QGuiApplication>
#include <QLayout>
#include <QPainter>
#include <QScreen>
#include <QToolBar>
#include <algorithm>

#include "kd/ui/hostdialogs.h"
#include "kd/ui/widgets.h"
#include "module/core/resources.h"
#include "module/edit/toolbar/tableditminiframewnd.h"

namespace {

const QString kImages = QStringLiteral(":/TvxTableRes/TvxTableRes/");

// Button styles of the host, its combo boxes' style of colours, and sizes on a plain screen.
constexpr int kFlatButton = 2;
constexpr int kFlatWithArrow = 6;
constexpr int kColorRows = 3;
constexpr int kSide = 20;
constexpr int kSideWithArrow = 40;
constexpr int kTallest = 16777215;
constexpr double kComboStretch = 1.5;
constexpr unsigned kColorTip = 1421;
constexpr unsigned kNoFillText = 2006;
/// The lists are narrower than lists in dialogs, their texts as long: a true colour has eleven characters.
constexpr double kListFontSize = 0.8;

struct ScaledStrip {
    double fromScale;
    const char* ending;
};
constexpr ScaledStrip kStrips[] = {{3.0, "_3X"}, {2.0, "_2X"}, {0.0, ""}};

const char* endingFor(double scale) {
    return std::find_if(std::begin(kStrips), std::end(kStrips),
                        [&](const ScaledStrip& strip) { return scale >= strip.fromScale; })
        ->ending;
}

int scaled(int pixels, double scale) {
    return static_cast<int>(std::min<double>(pixels * scale, QWIDGETSIZE_MAX));
}

/// The images stand side by side, each as wide as the strip is high.
QList<QIcon> cutImages(const QPixmap& strip) {
    QList<QIcon> icons;
    const int side = strip.height();
    for (int left = 0; side > 0 && left + side <= strip.width(); left += side) {
        QPixmap image(side, side);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.drawPixmap(0, 0, strip, left, 0, side, side);
        painter.end();
        icons.append(QIcon(image));
    }
    return icons;
}

QWidget* makeGap(int width) {
    auto* gap = new QWidget;
    gap->setFixedWidth(width);
    return gap;
}

}  // namespace

bool CVqTableditMiniFrameWnd::CreateToolBar(QWidget*, const KdString& title) {
    const double scale = kdadGetDPIScale();
    QWidget::setWindowTitle(QString::fromStdWString(title.str()));
    m_imageEnding = QString::fromLatin1(endingFor(scale));
    InitUIWidget(QStringLiteral("IDR_TABLEDIT_BAR") + m_imageEnding, scale);
    CalculateWindowSize();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    m_x = (screen.width() - frameGeometry().width()) / 2.0;
    m_y = screen.height() / 2.0;
    move(static_cast<int>(m_x), static_cast<int>(m_y));
    return true;
}

void CVqTableditMiniFrameWnd::InitUIWidget(const QString& strip, double scale) {
    const QPixmap images(kImages + strip);
    m_icons = cutImages(images);
    m_toolBar = new QToolBar(this);
    m_toolBar->setMovable(false);
    m_font = font();
    m_font.setPointSizeF(kListFontSize * m_font.pointSizeF());
    m_toolBar->setIconSize(QSize(images.height(), images.height()));
    for (const ToolbarRow& row : kToolbarRows) CreateToolBarWidget(row, scale);
    layout()->addWidget(m_toolBar);
}

void CVqTableditMiniFrameWnd::CreateToolBarWidget(const ToolbarRow& row, double scale) {
    if (row.item == ToolbarItem::Gap) {
        m_toolBar->addWidget(makeGap(row.widthAt(scale)));
        return;
    }
    const bool isButton = row.item == ToolbarItem::Button || row.item == ToolbarItem::Dropdown;
    QWidget* widget = isButton ? makeButton(row, scale) : makeCombo(row, scale);
    const QString name = QString::fromLatin1(row.name);
    widget->setObjectName(name);
    SetToolTips(*widget, row.tipText);
    m_toolBar->addWidget(widget);
    m_widgetByName[name] = widget;
    switchOf(row.control) = {widget, &m_buttonEnabled[name]};
    setEnabledState(row.control, true);
}

QWidget* CVqTableditMiniFrameWnd::makeButton(const ToolbarRow& row, double scale) {
    const bool hasArrow = row.item == ToolbarItem::Dropdown;
    auto* button = new KdUiPushButton;
    button->setButtonStyle(hasArrow ? kFlatWithArrow : kFlatButton);
    button->setFixedSize(scaled(hasArrow ? kSideWithArrow : kSide, scale), scaled(kSide, scale));
    // Keys go to the drawing, whichever button was pressed last.
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoDefault(false);
    button->setIconSize(m_toolBar->iconSize());
    button->setIcon(m_icons.value(row.imageOrWidth));
    connect(button, &KdUiPushButton::clicked, this, row.handler);
    if (hasArrow) {
        connect(button, &KdUiPushButton::clickedEventEx, this,
                [this] { CreatePopupMenu(sender()->objectName().toLatin1().constData()); });
    }
    return button;
}

QWidget* CVqTableditMiniFrameWnd::makeCombo(const ToolbarRow& row, double scale) {
    const bool isColor = row.item == ToolbarItem::ColorCombo;
    auto* combo = new KdUiComboBox;
    combo->setFixedWidth(static_cast<int>(kComboStretch * row.widthAt(scale)));
    combo->setMinimumHeight(scaled(kSide, scale));
    combo->setMaximumHeight(scaled(kTallest, scale));
    combo->setComboBoxStyle(kColorRows);
    combo->setFont(m_font);
    combo->setFocusPolicy(Qt::ClickFocus);
    if (isColor) {
        m_colorCombo.Create(combo, kColorTip);
        m_noFillText = loadText(kNoFillText);
    } else {
        m_cellStyleCombo.Attach(combo);
        // The styles may have changed since, which no table tells.
        connect(combo, &KdUiComboBox::boxDropdowm, this, &CVqTableditMiniFrameWnd::LoadCellStyleFromDatabase);
        FillCellStyleComboBox();
    }
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, row.handler);
    connect(combo, QOverload<int>::of(&QComboBox::activated), this, &CVqTableditMiniFrameWnd::giveKeysBack);
    return combo;
}

void CVqTableditMiniFrameWnd::SetToolTips(QWidget& widget, unsigned tipText) {
    const QString tip = QString::fromStdWString(loadText(tipText));
    widget.setToolTip(tip);
    widget.setAccessibleName(tip);
}
