// What a text of several lines holds.
#pragma once

#include <string>

#include "host/db/entitystate.h"
#include "kd/db/mtext.h"

struct KdDbMTextState : KdDbEntityState {
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<KdDbMTextState>(*this); }
    void mapIds(const kdhost::IdMapper& map) override;

    KdGePoint3d location;
    KdGeVector3d normal{0.0, 0.0, 1.0};
    double rotation = 0.0;
    double width = 0.0;
    double height = 0.0;
    KdDbObjectId textStyle;
    double textHeight = 2.5;
    KdDbMText::AttachmentPoint attachment = KdDbMText::kTopLeft;
    KdDbMText::FlowDirection flow = KdDbMText::kByStyle;
    std::wstring contents;
    mutable std::wstring fieldContents;  ///< of an attached field, given out as a pointer
    bool backgroundFill = false;
    KdCmColor backgroundColor;
    bool usesViewBackground = false;
    double backgroundScale = 1.5;
};
