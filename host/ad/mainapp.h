// The main application service: marks, and the settings that belong to the program rather than to a drawing.
#pragma once

#include <memory>
#include <vector>

#include "kd/ad/mainapp.h"

namespace kdhost {

class UndoHistory;

class MainAppService final : public KdadMainAppService {
public:
    /// The mark is the active drawing's, also where another drawing is active at its end.
    void beginCommandMark(const wchar_t* name, const KdString& title) override;
    void endCommandMark() override;
    void dialogCancelled() override;
    void toWorld(KdGePoint3d& point) const override;
    bool tableIndicatorColor(KdCmColor& color) const override;
    void setTableIndicatorColor(const KdCmColor& color) override;

private:
    /// Whose marks are open, the innermost last; nobody's for one begun without a drawing.
    std::vector<std::weak_ptr<UndoHistory>> m_marks;
};

}  // namespace kdhost
