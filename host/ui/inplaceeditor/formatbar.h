// The bar above the text that is being edited: bold, italic, underlined, colour, height, and a formula to be put in.
// It acts on what is selected, or on what is typed next. F10 leads to it from the text, Esc back.
#pragma once

#include <QFrame>
#include <functional>
#include <vector>

#include "host/text/format.h"
#include "kd/db/color.h"

class KdDbMText;
class QHBoxLayout;
class QLineEdit;
class QToolButton;

namespace kdhost {

class FieldText;
class RichDocument;
class TextItem;

class FormatBar : public QFrame {
public:
    /// Its text, document and item must outlive it. `back` gives the focus back to the text.
    FormatBar(const KdDbMText& text, RichDocument& document, TextItem& item, FieldText& fields,
              std::function<void()> back, QWidget* parent);
    ~FormatBar() override;

    /// Shows the format at the caret.
    void refresh();
    /// Carries out a key press in the text that belongs to a button, as Ctrl and B; false for any other.
    bool takeShortcut(const QKeyEvent& event);
    void takeFocus();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct Toggle;
    static const std::vector<Toggle>& toggles();

    void addToggles(QHBoxLayout& row);
    void addColor(QHBoxLayout& row);
    void addEdits(QHBoxLayout& row);
    void change(const std::function<void(text::Format&)>& how);
    void flip(const Toggle& toggle);
    void chooseColor();
    void applyHeight();
    void insertFormula();
    KdCmColor colorOf(const text::Ink& ink) const;

    const KdDbMText& m_text;
    RichDocument& m_document;
    TextItem& m_item;
    FieldText& m_fields;
    std::function<void()> m_back;
    std::vector<QToolButton*> m_toggles;
    QToolButton* m_color = nullptr;
    QLineEdit* m_height = nullptr;
    QLineEdit* m_formula = nullptr;
};

}  // namespace kdhost
