// The main window: menus, a tab for each drawing, the drawing view, the command line, and the coordinates. It does
// nothing by itself: what is chosen, clicked and typed goes to the input queue of the active drawing.
#pragma once

#include <QMainWindow>
#include <string>

#include "host/app/cells/cellmouse.h"
#include "kd/ge/point3d.h"

class QKeyEvent;
class QLabel;
class QTabBar;

namespace kdhost {

class CommandLineWidget;
class DocumentManager;
class DrawingView;

class MainWindow : public QMainWindow {
public:
    MainWindow();
    ~MainWindow() override;

    DrawingView& view() { return *m_view; }
    CommandLineWidget& commandLineWidget() { return *m_commandLine; }
    QTabBar& tabs() { return *m_tabs; }

    /// Types a macro at the prompt that waits, and shows it there.
    void type(const std::wstring& macro);
    /// Takes a key that another window had no use for, as if it had been pressed here. False when it means nothing.
    bool takeKey(const QKeyEvent& key);
    /// Tabs, title and view as the documents are.
    void showDocuments(const DocumentManager& documents);

protected:
    /// Closing is what QUIT does.
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    void build();
    void addTab();
    void showCoordinates(const KdGePoint3d& world);
    void openTab(int index);

    CellMouse m_input;
    QTabBar* m_tabs;
    DrawingView* m_view;
    CommandLineWidget* m_commandLine;
    QLabel* m_coordinates;
    int m_activeTab = -1;
};

}  // namespace kdhost
