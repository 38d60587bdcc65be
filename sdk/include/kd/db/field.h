// A field: a code and its evaluated text.
#pragma once

#include "kd/db/object.h"
#include "kd/rx/array.h"
#include "kd/rx/kdstring.h"

class KdDbField : public KdDbObject {
public:
    KDRX_DECLARE_MEMBERS(KdDbField)

    /// How a code is read or set.
    enum FieldCodeFlag : int {
        kFieldCode = 0,       ///< the code as set
        kEvaluatedText = 2,   ///< the evaluated text
        kTextField = 256,     ///< on setting: text with `%<\_FldIdx n>%` marks for the given children
        kAddChildren = 4096,  ///< the code with the children's codes in place of the marks
    };
    enum EvalOption : int {
        kDisable = 0,
        kOnOpen = 1,
        kOnSave = 2,
        kOnPlot = 4,
        kOnEtransmit = 8,
        kOnRegen = 16,
        kOnDemand = 32,
        kAutomatic = 63,  ///< on all of these occasions
    };

    KdDbField();

    /// Sets code and children together, so that without `children` there are none afterwards; what had been
    /// evaluated is void. A child that is in no database belongs to the field from now on (another field's
    /// is copied) and goes into the database with it, or at once, open for write, when the field is there
    /// already. Children in the database that this field owned and no longer has are erased.
    /// eInvalidInput for a null code.
    Kdad::ErrorStatus setFieldCode(const wchar_t* code, FieldCodeFlag flag = kFieldCode,
                                   KdArray<KdDbField*>* children = nullptr);
    /// An empty text when there is none. Appends the children, opened in that mode where they are in a
    /// database, when an array is given. The evaluated text of a formula follows the cells that it reads; of a
    /// code that can't be evaluated it is "####", of a mere text the text with its children's.
    KdString getFieldCode(FieldCodeFlag flag, KdArray<KdDbField*>* children = nullptr,
                          KdDb::OpenMode mode = KdDb::kForRead) const;
    /// The same; the caller frees the text with kdutDelBuffer.
    Kdad::ErrorStatus getFieldCode(wchar_t*& code, FieldCodeFlag flag, KdArray<KdDbField*>* children = nullptr,
                                   KdDb::OpenMode mode = KdDb::kForRead) const;
    int childCount() const;
    /// The child, opened when it is in a database. eInvalidIndex when there is no such child.
    Kdad::ErrorStatus getChild(int index, KdDbField*& child, KdDb::OpenMode mode) const;
    /// With kDisable a field keeps the text that it shows; with any other option it is always up to date.
    Kdad::ErrorStatus setEvaluationOption(EvalOption option);
    EvalOption evaluationOption() const;
    /// Puts the field and its children into the database; the field stays open for write, the children
    /// don't. eAlreadyInDatabase when it has a place, eInvalidInput for a null database.
    Kdad::ErrorStatus postInDatabase(KdDbDatabase* database);

    /// A copy in memory, the caller's: code, option, text shown last, and copies of the children, in their turn.
    KdDbField* clone() const;
    using KdDbObject::setField;
    /// Under an empty name the field becomes a child: the first ones take the places of the children that a
    /// clone was made with, one after another, those that follow are added. Any other name attaches it as to
    /// every object.
    Kdad::ErrorStatus setField(const wchar_t* name, KdDbField* field) override;

    ~KdDbField() override;
};
