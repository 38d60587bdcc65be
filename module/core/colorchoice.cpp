// Colours that the user chooses in the host's colour dialog.

#include "kd/ad/mainapp.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ui/hostdialogs.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"

namespace {

/// The current layer of the drawing that commands work on; null without a drawing.
KdDbObjectId currentLayer() {
    const KdDbHostApplicationServices* services = kddbHostApplicationServices();
    const KdDbDatabase* drawing = services == nullptr ? nullptr : services->workingDatabase();
    return drawing == nullptr ? KdDbObjectId::kNull : drawing->clayer();
}

}  // namespace

bool CVqTableCommon::GetColorDialogTrueColor(KdCmColor& color, bool allowMeta) {
    // The dialog starts from the layer's colour, and so the caller's doesn't reach it.
    if (const OpenObject<KdDbLayerTableRecord> layer(currentLayer(), KdDb::kForRead); layer) color = layer->color();
    return kdedSetColorDialogTrueColor(color, allowMeta, color, 7);
}

int CVqTableCommon::SetBackgroundColorFormMenu(KdDbObjectId table) {
    KdCmColor color;
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForRead);
        if (!open) return true;
        GetBackgroundColor(open.get(), color);
        if (color.isNone()) color = KdCmColor();
    }
    return GetColorDialogTrueColor(color, true) ? SetBackgroundColor(table, color) : true;
}

bool CVqTableCommon::SetTableIndicator(KdDbObjectId) {
    KdadMainAppService* service = vqcadMainAppService();
    KdCmColor color;
    if (service == nullptr || !service->tableIndicatorColor(color)) return false;
    if (GetColorDialogTrueColor(color, false)) service->setTableIndicatorColor(color);
    return true;
}
