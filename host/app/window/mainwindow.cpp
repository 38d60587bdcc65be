// The main window.

#include "host/app/window/mainwindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "host/ad/documents.h"
#include "host/app/window/commandlinewidget.h"
#include "host/app/window/drawingview.h"
#include "host/app/window/menus.h"
#include "host/ed/editor.h"
#include "host/ed/words.h"

namespace kdhost {
namespace {

constexpr const wchar_t* kCancel = L"^C";
constexpr Words kCloseDrawing{L"Close the drawing", L"关闭图形"};

QString inCoordinates(double value) {
    return QString::number(value, 'f', 4);
}

/// The macro as the command line shows it: without its cancels and line ends.
std::wstring shownOf(std::wstring macro) {
    while (macro.rfind(kCancel, 0) == 0) macro.erase(0, 2);
    while (!macro.empty() && macro.back() == L'\n') macro.pop_back();
    return macro;
}

void escape() {
    if (Editor* editor = currentEditor()) editor->input().put(InputItem::Kind::Escape);
}

void put(const std::wstring& token) {
    if (Editor* editor = currentEditor()) editor->input().type(token);
}

}  // namespace

MainWindow::MainWindow()
    : m_tabs(new QTabBar),
      m_view(new DrawingView),
      m_commandLine(new CommandLineWidget(
          {put, escape,
           [this](const QKeyEvent& key) { return m_view->input() != nullptr && m_view->input()->key(key); }})),
      m_coordinates(new QLabel) {
    setObjectName(QStringLiteral("MainWindow"));
    build();
    buildMenus(*menuBar(), [this](const std::wstring& macro) { type(macro); });
    m_view->setInput(&m_input);
    m_view->setFocusProxy(&m_commandLine->edit());
    m_view->setCursorListener([this](const KdGePoint3d& world) { showCoordinates(world); });
    showCoordinates({});
    m_commandLine->edit().setFocus();
}

MainWindow::~MainWindow() = default;

void MainWindow::build() {
    m_tabs->setObjectName(QStringLiteral("DocumentTabs"));
    m_tabs->setDocumentMode(true);
    m_tabs->setExpanding(false);
    m_tabs->setFocusPolicy(Qt::NoFocus);
    m_tabs->setDrawBase(false);
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) { openTab(index); });

    auto* drawing = new QWidget;
    auto* column = new QVBoxLayout(drawing);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_tabs);
    column->addWidget(m_view, 1);

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(drawing);
    splitter->addWidget(m_commandLine);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    setCentralWidget(splitter);

    m_coordinates->setObjectName(QStringLiteral("Coordinates"));
    const int gap = fontMetrics().averageCharWidth();
    m_coordinates->setContentsMargins(gap, 0, gap, 0);
    m_coordinates->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("-00000000.0000, -00000000.0000")) +
                                   2 * gap);
    statusBar()->addWidget(m_coordinates);
    const QSize wanted(fontMetrics().averageCharWidth() * 200, fontMetrics().lineSpacing() * 54);
    resize(wanted.boundedTo(QGuiApplication::primaryScreen()->availableSize() * 0.9));
}

/// The style's own cross doesn't grow with the screen's scale.
void MainWindow::addTab() {
    const int index = m_tabs->addTab(QString());
    auto* button = new QToolButton;
    button->setText(QStringLiteral("×"));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(QString::fromWCharArray(kCloseDrawing.text()));
    connect(button, &QToolButton::clicked, this, [this, button] {
        int place = 0;
        while (place < m_tabs->count() && m_tabs->tabButton(place, QTabBar::RightSide) != button) ++place;
        type(L"^C^C_CLOSE " + std::to_wstring(place + 1) + L"\n");
    });
    m_tabs->setTabButton(index, QTabBar::RightSide, button);
}

void MainWindow::showCoordinates(const KdGePoint3d& world) {
    m_coordinates->setText(inCoordinates(world.x) + QStringLiteral(", ") + inCoordinates(world.y));
}

void MainWindow::type(const std::wstring& macro) {
    m_commandLine->clearTyped();
    m_commandLine->echo(shownOf(macro));
    put(macro);
}

bool MainWindow::takeKey(const QKeyEvent& key) {
    activateWindow();
    QWidget& edit = m_commandLine->edit();
    edit.setFocus(Qt::OtherFocusReason);
    QKeyEvent copy(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat());
    return QCoreApplication::sendEvent(&edit, &copy);
}

/// The tab shows what is active when the drawing has been switched, not when it was asked for.
void MainWindow::openTab(int index) {
    if (index < 0 || index == m_activeTab) return;
    {
        const QSignalBlocker blocker(m_tabs);
        m_tabs->setCurrentIndex(m_activeTab);
    }
    type(L"^C^C_DOCUMENT " + std::to_wstring(index + 1) + L"\n");
}

void MainWindow::showDocuments(const DocumentManager& documents) {
    const QSignalBlocker blocker(m_tabs);
    while (m_tabs->count() > documents.documentCount()) m_tabs->removeTab(m_tabs->count() - 1);
    while (m_tabs->count() < documents.documentCount()) addTab();
    m_activeTab = -1;
    for (int index = 0; index < documents.documentCount(); ++index) {
        const Document* document = documents.at(index);
        m_tabs->setTabText(index, QString::fromStdWString(document->title()));
        if (document == documents.current()) m_activeTab = index;
    }
    m_tabs->setCurrentIndex(m_activeTab);
    const QString name = m_activeTab < 0 ? QString() : m_tabs->tabText(m_activeTab);
    setWindowTitle(name.isEmpty() ? QStringLiteral("kdhost") : name + QStringLiteral(" - kdhost"));
    m_view->showActive();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    type(L"^C^C_QUIT\n");
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    m_view->showActive();
}

}  // namespace kdhost
