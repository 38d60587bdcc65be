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

    /// Which way the characters of a line run.
    enum FlowDirection : int { kLtoR = 1, kTtoB = 3, kByStyle = 5 };

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
    /// Height of the box that the text is meant for; nothing is cut by it. 0 for none, eInvalidInput when negative.
    double height() const;
    Kdad::ErrorStatus setHeight(double height);
    /// Direction of the lines in world coordinates, length 1: what rotation tells, the other way round. Only
    /// its part in the text's plane counts; eInvalidInput when it has none.
    KdGeVector3d direction() const;
    Kdad::ErrorStatus setDirection(const KdGeVector3d& direction);
    KdDbObjectId textStyle() const;
    Kdad::ErrorStatus setTextStyle(KdDbObjectId style);
    /// Height of a capital letter. eInvalidInput unless positive.
    double textHeight() const;
    Kdad::ErrorStatus setTextHeight(double height);
    AttachmentPoint attachment() const;
    Kdad::ErrorStatus setAttachment(AttachmentPoint attachment);

    /// Kept for those who read it: every text is set from left to right. eInvalidInput for another value.
    FlowDirection flowDirection() const;
    Kdad::ErrorStatus setFlowDirection(FlowDirection flow);

    /// The text with its formatting codes; of an attached field "TEXT" what it shows. The pointer is valid until
    /// the next change.
    const wchar_t* contents() const;
    /// The attached field goes.
    Kdad::ErrorStatus setContents(const wchar_t* text);

    /// A fill behind the text.
    bool backgroundFillOn() const;
    Kdad::ErrorStatus setBackgroundFill(bool on);
    KdCmColor backgroundFillColor() const;
    Kdad::ErrorStatus setBackgroundFillColor(const KdCmColor& color);
    /// How far the fill reaches beyond the text: 1 is the text itself, and the text height times one less than
    /// the factor is added on each side. eInvalidInput unless 1 to 5.
    double backgroundScaleFactor() const;
    Kdad::ErrorStatus setBackgroundScaleFactor(double factor);
    /// The fill has the colour of the view instead of its own.
    bool useBackgroundColorOn() const;
    Kdad::ErrorStatus setUseBackgroundColor(bool on);

    /// Size of the text as wrapped.
    double actualWidth() const;
    double actualHeight() const;

    Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) override;
    KdDbExtents getGeomExtents() const override;
};

/// As setRotation; a null text is passed over.
void kddbSetMtextRotation(KdDbMText* text, double angle);

/// The text without its formatting codes, as it is read: paragraphs become line feeds, stacked fractions
/// "a/b", "%%d" and its like their characters.
KdString stripMtextFormatting(const KdString& text, KdDbDatabase* database, const KdDbObjectId& textStyle);
/// Length of a text in which nothing can begin a code, so that stripMtextFormatting gives it back as it stands; -1 for
/// any other text. Nearly all texts of a large table are such, and this spares them being copied.
int plainMtextLength(const wchar_t* text);
