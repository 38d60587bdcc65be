// Reading of menus, and building them from what was read.

#include "host/ui/menutree.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QXmlStreamReader>
#include <memory>
#include <vector>

#include "kd/ui/menu.h"

namespace kdhost {
namespace {

/// A menu or an action, and what a menu shows: indices into its parts, and separators.
struct Node {
    static constexpr int kSeparator = -1;

    bool isMenu = false;
    QString name;
    QByteArray text;  ///< untranslated, in UTF-8
    bool isTranslated = true;
    std::vector<Node> parts;
    std::vector<int> shown;
};

struct Form {
    QByteArray context;  ///< of its translations
    Node menu;
};

class Reader {
public:
    explicit Reader(const QByteArray& form) : m_xml(form) {}

    /// Null for a file with anything that menus don't have.
    std::shared_ptr<const Form> read() {
        auto form = std::make_shared<Form>();
        if (!m_xml.readNextStartElement() || m_xml.name() != QLatin1String("ui")) return nullptr;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("class")) {
                form->context = m_xml.readElementText().toUtf8();
            } else if (m_xml.name() == QLatin1String("widget")) {
                form->menu = readNode(true);
            } else if (m_xml.name() == QLatin1String("resources") || m_xml.name() == QLatin1String("connections")) {
                expectEmpty();
            } else {
                refuse();
            }
        }
        return m_xml.hasError() || !form->menu.isMenu ? nullptr : form;
    }

private:
    void refuse() { m_xml.raiseError(QStringLiteral("no plain menu")); }
    void expectEmpty() {
        if (m_xml.readNextStartElement()) refuse();
    }
    QString attribute(const char* name) const { return m_xml.attributes().value(QLatin1String(name)).toString(); }

    Node readNode(bool isMenu) {
        Node node;
        node.isMenu = isMenu;
        node.name = attribute("name");
        if (isMenu && attribute("class") != QLatin1String("QMenu")) refuse();
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("property")) {
                readText(node);
            } else if (isMenu && m_xml.name() == QLatin1String("widget")) {
                node.parts.push_back(readNode(true));
            } else if (isMenu && m_xml.name() == QLatin1String("action")) {
                node.parts.push_back(readNode(false));
            } else if (isMenu && m_xml.name() == QLatin1String("addaction")) {
                show(node, attribute("name"));
                expectEmpty();
            } else {
                refuse();
            }
        }
        return node;
    }

    void readText(Node& node) {
        const QString name = attribute("name");
        if (name != (node.isMenu ? QLatin1String("title") : QLatin1String("text"))) refuse();
        if (!m_xml.readNextStartElement() || m_xml.name() != QLatin1String("string")) refuse();
        node.isTranslated = attribute("notr") != QLatin1String("true");
        // A comment of the text would be part of what is looked up.
        if (m_xml.attributes().hasAttribute(QLatin1String("comment"))) refuse();
        node.text = m_xml.readElementText().toUtf8();
        expectEmpty();
    }

    void show(Node& menu, const QString& name) {
        if (name == QLatin1String("separator")) {
            menu.shown.push_back(Node::kSeparator);
            return;
        }
        for (std::size_t part = 0; part < menu.parts.size(); ++part) {
            if (menu.parts[part].name != name) continue;
            menu.shown.push_back(static_cast<int>(part));
            return;
        }
        refuse();
    }

    QXmlStreamReader m_xml;
};

/// A form is read again only when its text is another one. Null for one that is for the general loader.
std::shared_ptr<const Form> formOf(const QByteArray& text) {
    static QHash<QByteArray, std::shared_ptr<const Form>> known;
    const auto found = known.constFind(text);
    return found != known.constEnd() ? *found : *known.insert(text, Reader(text).read());
}

class Builder {
public:
    explicit Builder(const QByteArray& context) : m_context(context) {}

    QMenu* menu(const Node& node, QWidget* parent) const {
        auto* menu = new KdUiMenu(textOf(node), parent);
        menu->setObjectName(node.name);
        std::vector<QAction*> actions;
        for (const Node& part : node.parts) {
            actions.push_back(part.isMenu ? this->menu(part, menu)->menuAction() : action(part, menu));
        }
        for (const int part : node.shown) {
            if (part == Node::kSeparator) {
                menu->addSeparator();
            } else {
                menu->addAction(actions[static_cast<std::size_t>(part)]);
            }
        }
        return menu;
    }

private:
    QAction* action(const Node& node, QMenu* parent) const {
        auto* action = new QAction(textOf(node), parent);
        action->setObjectName(node.name);
        return action;
    }
    QString textOf(const Node& node) const {
        return node.isTranslated && !node.text.isEmpty() ? QCoreApplication::translate(m_context, node.text)
                                                         : QString::fromUtf8(node.text);
    }

    const QByteArray& m_context;
};

}  // namespace

QMenu* buildMenuTree(const QByteArray& text, QWidget* parent) {
    const std::shared_ptr<const Form> form = formOf(text);
    return form == nullptr ? nullptr : Builder(form->context).menu(form->menu, parent);
}

}  // namespace kdhost
