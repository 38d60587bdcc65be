// Records of symbol tables (layers, line types, text styles, blocks) by their names.
#pragma once

#include <memory>
#include <string>

#include "host/db/opened.h"
#include "kd/db/symboltable.h"

namespace kdhost {

/// The record of that name, whatever its case, found without opening anything; null for none.
KdDbObjectId recordNamed(KdDbObjectId symbolTable, const std::wstring& name);

/// Read without opening the record; empty for an id that is no record's.
std::wstring recordName(KdDbObjectId record);

/// Adds a record that has its name. Null, with the record gone, when the table can't be written or doesn't take it;
/// else it is open for write.
KdDbSymbolTableRecord* addSymbol(KdDbObjectId symbolTable, std::unique_ptr<KdDbSymbolTableRecord> record);

/// The same, as the record's own class.
template <class Record>
Opened<Record> addRecord(KdDbObjectId symbolTable, std::unique_ptr<Record> record) {
    return Opened<Record>(static_cast<Record*>(addSymbol(symbolTable, std::move(record))));
}

}  // namespace kdhost
