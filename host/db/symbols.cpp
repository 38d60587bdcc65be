// Finding, naming and adding of records.

#include "host/db/symbols.h"

#include "host/db/access.h"

namespace kdhost {

KdDbObjectId recordNamed(KdDbObjectId symbolTable, const std::wstring& name) {
    KdDbObjectId id;
    if (const auto* table = peek<KdDbSymbolTable>(symbolTable)) table->getAt(name.c_str(), id);
    return id;
}

std::wstring recordName(KdDbObjectId record) {
    std::wstring name;
    if (const auto* found = peek<KdDbSymbolTableRecord>(record)) found->getName(name);
    return name;
}

KdDbSymbolTableRecord* addSymbol(KdDbObjectId symbolTable, std::unique_ptr<KdDbSymbolTableRecord> record) {
    const Opened<KdDbSymbolTable> table(symbolTable, KdDb::kForWrite);
    KdDbObjectId id;
    return table && table->add(id, record.get()) == Kdad::eOk ? record.release() : nullptr;
}

}  // namespace kdhost
