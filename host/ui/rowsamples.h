// The samples that rows of combo boxes and lists show beside their texts, and the data behind rows.
#pragma once

#include <QIcon>
#include <QVariant>
#include <QWidget>
#include <optional>
#include <vector>

#include "kd/db/color.h"

class CWnd;

namespace kdhost {

/// Values of KdUiComboBox::comboBoxStyle. A box paints the samples of its own style only; a plain box or list
/// paints all.
enum class SampleStyle { Linetype = 1, LineWeight = 2, Color = 3 };

/// A field of the colour; a crossed one for none, an empty one where there is no one colour to show.
QIcon colorSample(QWidget* box, const std::optional<KdCmColor>& color);
/// A line of that weight, in hundredths of a millimetre.
QIcon lineWeightSample(QWidget* box, int weight);
/// A line of that pattern, in drawing units; empty is a solid line.
QIcon linetypeSample(QWidget* box, const std::vector<double>& dashes);

/// The place that samples of a style take, at the box's scale.
QSize sampleSize(const QWidget& box, SampleStyle style);

/// Data of a row of a combo box or a list under a role; an invalid value where there is no such row.
QVariant rowData(const CWnd& box, int row, int role);
void setRowData(const CWnd& box, int row, const QVariant& data, int role);

}  // namespace kdhost
