// The symbol tables that the program knows: what their records are, each attribute with its code.
#pragma once

#include <span>

#include "host/file/record.h"
#include "kd/db/symboltable.h"

namespace kdhost::file {

/// One of the tables that the program knows.
struct SymbolKind {
    const char* name;
    KdDbObjectId DatabaseRoots::*root;
    std::unique_ptr<KdDbSymbolTable> (*makeTable)();
    std::unique_ptr<KdDbSymbolTableRecord> (*makeRecord)();
    void (*write)(RecordWriter&, const KdDbObject&);
    void (*read)(RecordReader&, KdDbObject&);
};

std::span<const SymbolKind> symbolKinds();
/// Null for a table of another kind.
const SymbolKind* symbolKind(std::string_view name);

}  // namespace kdhost::file
