// The enumerations of the drawing database. Their numeric values are part of the contract: several are
// stored in files and in lists, or worked with as masks.
#pragma once

namespace KdDb {

enum OpenMode : int { kForRead = 0, kForWrite = 1 };

/// Three columns by three rows; the value indexes tables.
enum CellAlignment : int {
    kTopLeft = 1,
    kTopCenter = 2,
    kTopRight = 3,
    kMiddleLeft = 4,
    kMiddleCenter = 5,
    kMiddleRight = 6,
    kBottomLeft = 7,
    kBottomCenter = 8,
    kBottomRight = 9,
};

/// Bits. The mask 51 is all of them; other bits are ignored where states are compared.
enum CellState : int {
    kCellStateNone = 0,
    kCellStateContentLocked = 1,
    kCellStateContentReadOnly = 2,
    kCellStateFormatLocked = 16,
    kCellStateFormatReadOnly = 32,
};

enum CellClass : int { kCellClassLabel = 1, kCellClassData = 2 };

/// Bits; one value names one edge, or one set of edges, of a cell or a cell style.
enum GridLineType : int {
    kHorzTop = 1,
    kHorzInside = 2,
    kHorzBottom = 4,
    kVertLeft = 8,
    kVertInside = 16,
    kVertRight = 32,
};

enum GridLineStyle : int { kGridLineStyleSingle = 1, kGridLineStyleDouble = 2 };

/// Zero means that the edge is drawn.
enum Visibility : int { kVisible = 0, kInvisible = 1 };

/// Hundredths of a millimetre, and three negative specials.
enum LineWeight : int {
    kLnWtByLwDefault = -3,
    kLnWtByBlock = -2,
    kLnWtByLayer = -1,
    kLnWt000 = 0,
    kLnWt005 = 5,
    kLnWt009 = 9,
    kLnWt013 = 13,
    kLnWt015 = 15,
    kLnWt018 = 18,
    kLnWt020 = 20,
    kLnWt025 = 25,
    kLnWt030 = 30,
    kLnWt035 = 35,
    kLnWt040 = 40,
    kLnWt050 = 50,
    kLnWt053 = 53,
    kLnWt060 = 60,
    kLnWt070 = 70,
    kLnWt080 = 80,
    kLnWt090 = 90,
    kLnWt100 = 100,
    kLnWt106 = 106,
    kLnWt120 = 120,
    kLnWt140 = 140,
    kLnWt158 = 158,
    kLnWt200 = 200,
    kLnWt211 = 211,
};

/// The top and the bottom margin are one value, the left and the right margin another.
enum CellMargin : int { kCellMarginTop = 1, kCellMarginLeft = 2 };

/// Every value other than title and header is treated as data.
enum RowType : int { kUnknownRow = 0, kDataRow = 1, kTitleRow = 2, kHeaderRow = 4 };

/// The third kind is passed over by text editing.
enum CellType : int { kUnknownCell = 0, kTextCell = 1, kBlockCell = 2, kMultipleContentCell = 3 };

enum CellContentType : int {
    kCellContentTypeUnknown = 0,
    kCellContentTypeValue = 1,
    kCellContentTypeField = 2,
    kCellContentTypeBlock = 4,
};

enum TableHitItem : int {
    kTableHitNone = 0,
    kTableHitCell = 1,
    kTableHitRowIndicator = 2,
    kTableHitColumnIndicator = 4,
};

/// How KdDbTable::copyFrom treats the target; 0 copies content and format.
enum TableCopyOption : int { kTableCopyDefault = 0 };

/// Names that the host keeps for itself.
enum reservedStringEnumType : int {
    kReservedStandard = 4,
    kReservedCellStyleTitle = 17,
    kReservedCellStyleHeader = 18,
    kReservedCellStyleData = 19,
};

}  // namespace KdDb
