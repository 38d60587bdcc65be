// Text of several lines, with formatting codes.
#pragma once

#include <string>

#include "kd/db/entity.h"
#include "kd/rx/kdstring.h"

class KdDbMText : public KdDbEntity {
public:
    KDRX_DECLARE_MEMBERS(KdDbMText)
    /// The nine places that the location may have in the text's box, numbered like KdDb::CellAlignment.
    enum AttachmentPoint : int {
        kTopLeft = 1,
        kTopCenter,
        kTopRight,
        kMiddleLeft,
        kMiddleCenter,
        kMiddleRight,
        kBottomLeft,
        kBottomCenter,
        kBottomRight,
    };

    KdDbMText();

    KdGePoint3d location() const;
    Kdad::ErrorStatus setLocation(const KdGePoint3d& point);
    KdGeVector3d normal() const;
    Kdad::ErrorStatus setNormal(const KdGeVector3d& normal);
    /// Radians against the x axis of the text's plane.
    double rotation() const;
    Kdad::ErrorStatus setRotation(double angle);
    /// Width that lines are wrapped at; 0 for no wrapping. eInvalidInput when negative.
    double width() const;
    Kdad::ErrorStatus setWidth(double width);
    KdDbObjectId textStyle() const;
    Kdad::ErrorStatus setTextStyle(KdDbObjectId style);
    /// Height of a capital letter. eInvalidInput unless positive.
    double textHeight() const;
    Kdad::ErrorStatus setTextHeight(double height);
    AttachmentPoint attachment() const;
    Kdad::ErrorStatus setAttachment(AttachmentPoint attachment);

    /// The text with its formatting codes. The pointer is valid until the next change.
    const wchar_t* contents() const;
    Kdad::ErrorStatus setContents(const wchar_t* text);

    /// Size of the text as wrapped.
    double actualWidth() const;
    double actualHeight() const;

    Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) override;
    KdDbExtents getGeomExtents() const override;
};

/// The text without its formatting codes, as it is read: paragraphs become line feeds, stacked fractions
/// "a/b", "%%d" and its like their characters.
KdString stripMtextFormatting(const KdString& text, KdDbDatabase* database, const KdDbObjectId& textStyle);
/// The same for a text that is given away; one without codes comes back without a copy.
KdString stripMtextFormatting(KdString&& text, KdDbDatabase* database, const KdDbObjectId& textStyle);
