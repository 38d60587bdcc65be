// The open drawings: their documents, which of them is active, and who is told of it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/db/transaction.h"
#include "host/ed/editor.h"
#include "kd/ad/document.h"
#include "kd/db/database.h"

namespace kdhost {

class HostServices;

class Document : public KdApDocument {
public:
    explicit Document(std::wstring fileName);
    ~Document() override;

    KdDbDatabase* database() const override { return m_database.get(); }
    const wchar_t* fileName() const override { return m_fileName.c_str(); }
    KdDbTransactionManager* transactionManager() override { return &m_transactionManager; }
    Editor& editor() { return m_editor; }
    KdadDocData& data() { return m_data; }

private:
    std::wstring m_fileName;
    std::unique_ptr<KdDbDatabase> m_database;
    TransactionManager m_transactionManager;
    Editor m_editor;
    KdadDocData m_data;
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

    Document* current() const { return m_current; }
    /// Null outside 0 to the number of documents. They stand in the order of opening.
    Document* at(int index) const;
    /// Whether this is one of the open documents.
    bool holds(const KdApDocument* document) const;
    /// Null when no document has the database.
    Document* documentOf(const KdDbDatabase* database) const;
    /// The document whose data record modules are given: already the new one while the reactors are told
    /// that it is about to become active.
    Document* inContext() const { return m_context; }

    /// A new drawing, which becomes active.
    Document& openNew();
    void activate(Document& document);
    /// Closes a drawing without saving; the one opened before it, else the first, becomes active. False while a
    /// command of it runs.
    bool close(Document& document);

private:
    template <class... Parameters, class... Arguments>
    void tell(void (KdApDocManagerReactor::*operation)(Parameters...), Arguments... arguments);
    void setCurrent(Document* document);

    HostServices& m_services;
    std::vector<std::unique_ptr<Document>> m_documents;
    std::vector<KdApDocManagerReactor*> m_reactors;
    Document* m_current = nullptr;
    Document* m_context = nullptr;
    int m_lastNumber = 0;
};

}  // namespace kdhost
