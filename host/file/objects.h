// The section OBJECTS: dictionaries, table styles, fields, and what is kept as it stands.
#pragma once

#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

void writeObjects(SaveContext& context);

void placeObjects(LoadContext& context, const FileSection& section);
void readObjects(LoadContext& context, const FileSection& section);

/// A formula's code as files have it: a mark in the place of each table that it names; the tables are added to
/// `objects`. Other codes stay.
std::wstring codeWithMarks(const std::wstring& code, std::vector<KdDbObjectId>& objects);
std::wstring codeWithoutMarks(const std::wstring& code, const std::vector<KdDbObjectId>& objects);

// One kind each.
void writeTableStyle(SaveContext& context, const KdDbObject& style);
void readTableStyle(LoadContext& context, KdDbObject& style, const FileObject& object);
void writeField(SaveContext& context, const KdDbObject& field);
void readField(LoadContext& context, KdDbObject& field, const FileObject& object);

}  // namespace kdhost::file
