// Peers that several figures are measured beside: an item model of as many items as there are cells.
#pragma once

#include <benchmark/benchmark.h>

#include <QStandardItemModel>

namespace kdbench {

/// Reads the flags of each item.
inline void scanItemFlags(benchmark::State& state, int rows, int columns) {
    QStandardItemModel model(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) model.setItem(row, column, new QStandardItem);
    }
    for (auto _ : state) {
        int editable = 0;
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                if ((model.flags(model.index(row, column)) & Qt::ItemIsEditable) != 0) ++editable;
            }
        }
        benchmark::DoNotOptimize(editable);
    }
}

}  // namespace kdbench
