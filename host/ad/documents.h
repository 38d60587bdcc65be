// The open drawings: their documents, which of them is active, and who is told of it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/db/transaction.h"
#include "host/ed/editor.h"
#include "kd/ad/document.h"
#include "kd/db/database.h"

namespace kdhost {

class HostServices;

class Document : public KdApDocument {
public:
    /// A new drawing of that name, or one that was read from the file of that path.
    explicit Document(std::wstring fileName);
    Document(std::wstring path, std::unique_ptr<KdDbDatabase> read);
    ~Document() override;

    KdDbDatabase* database() const override { return m_database.get(); }
    const wchar_t* fileName() const override { return m_fileName.c_str(); }
    /// The name without the folder.
    std::wstring title() const;
    /// Whether the name is that of a file.
    bool hasFile() const { return m_hasFile; }
    /// Writes the drawing into that file, whose name is the drawing's from then on. The statuses of
    /// KdDbDatabase::saveAs, with nothing changed.
    Kdad::ErrorStatus saveAs(const std::wstring& path);
    /// Is called when the drawing has been saved under a name; empty for nobody.
    void setSaveListener(std::function<void()> listener) { m_saveListener = std::move(listener); }
    /// Whether it has changes that its file, if it has one, lacks.
    bool isChanged() const;
    /// What it holds is what its file holds, or a new drawing.
    void noteSaved();
    KdDbTransactionManager* transactionManager() override { return &m_transactionManager; }
    Editor& editor() { return m_editor; }
    KdadDocData& data() { return m_data; }

    /// Until as many unlocks, what is changed is undone like a command of that name. eLockViolation while a command of
    /// another document runs.
    Kdad::ErrorStatus lock(const std::wstring& name);
    /// False when it isn't locked.
    bool unlock();

private:
    std::wstring m_fileName;
    bool m_hasFile = false;
    std::unique_ptr<KdDbDatabase> m_database;
    TransactionManager m_transactionManager;
    Editor m_editor;
    KdadDocData m_data;
    int m_locks = 0;
    std::function<void()> m_saveListener;
};

class DocumentManager : public KdApDocManager {
public:
    explicit DocumentManager(HostServices& services);
    /// Closes what is open.
    ~DocumentManager() override;

    void addReactor(KdApDocManagerReactor* reactor) override;
    void removeReactor(KdApDocManagerReactor* reactor) override;
    std::size_t reactorCount() const { return m_reactors.size(); }
    int documentCount() const override { return static_cast<int>(m_documents.size()); }
    KdApDocument* curDocument() const override { return m_current; }
    Kdad::ErrorStatus sendStringToExecute(KdApDocument* document, const wchar_t* text, bool activate = true,
                                          bool wrapUp = false, bool echo = true) override;
    Kdad::ErrorStatus lockDocument(KdApDocument* document, KdAp::DocLockMode mode, const wchar_t* globalName,
                                   const wchar_t* localName, bool prompt) override;
    Kdad::ErrorStatus unlockDocument(KdApDocument* document) override;

    Document* current() const { return m_current; }
    /// Null outside 0 to the number of documents. They stand in the order of opening.
    Document* at(int index) const;
    /// Whether this is one of the open documents.
    bool holds(const KdApDocument* document) const;
    /// Null when no document has the database.
    Document* documentOf(const KdDbDatabase* database) const;
    /// Null when no document has that file, by whatever way its path is told.
    Document* documentOfFile(const std::wstring& path) const;
    /// The document whose data record modules are given: already the new one while the reactors are told
    /// that it is about to become active.
    Document* inContext() const { return m_context; }

    /// A new drawing, which becomes active.
    Document& openNew();
    /// Opens a drawing's file, which becomes active; one that is open already only becomes active. The statuses of
    /// KdDbDatabase::readDwgFile, with nothing changed.
    Kdad::ErrorStatus openFile(const std::wstring& path);
    void activate(Document& document);
    /// Closes a drawing without saving; the one opened before it, else the first, becomes active. False while a
    /// command of it runs.
    bool close(Document& document);
    /// Is called when a drawing has been saved, maybe under another name; empty for nobody.
    void setSaveListener(std::function<void()> listener) { m_saveListener = std::move(listener); }

private:
    template <class... Parameters, class... Arguments>
    void tell(void (KdApDocManagerReactor::*operation)(Parameters...), Arguments... arguments);
    void setCurrent(Document* document);
    Document& enter(std::unique_ptr<Document> document);

    HostServices& m_services;
    std::vector<std::unique_ptr<Document>> m_documents;
    std::vector<KdApDocManagerReactor*> m_reactors;
    Document* m_current = nullptr;
    Document* m_context = nullptr;
    int m_lastNumber = 0;
    std::function<void()> m_saveListener;
};

}  // namespace kdhost
