// The parameter grid of the PID and the auto tuning window, as both show it.
#pragma once

#include "commissioning/parameter_rows.h"
#include "ui/readable_colours.h"
#include "ui/string_grid_view.h"

namespace kelvane {

// All rows are kept selected, so that no single cell seems chosen; therefore the selection is only a tint.
inline void setUpParameterGrid(StringGridView& view, ParameterRows& rows, const QString& name) {
    view.setGrid(&rows.ParaAdvStringGrid);
    view.setAccessibleName(name);
    view.setColumnCharacters({7, 18, 6, 9, 9, 9, 9, 5, 9});
    view.setStretchColumn(ParameterRows::Description);
    view.setRightAligned({ParameterRows::Data, ParameterRows::Default, ParameterRows::Min, ParameterRows::Max,
                          ParameterRows::Dot});
    view.setEditedMarkColumn(ParameterRows::Data);
    QPalette tinted = view.palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        tinted.setColor(group, QPalette::Highlight,
                        mix(tinted.color(QPalette::Base), tinted.color(QPalette::Highlight), 0.15));
        tinted.setColor(group, QPalette::HighlightedText, tinted.color(QPalette::Text));
    }
    view.setPalette(tinted);
    QObject::connect(&view, &StringGridView::currentCellChanged, &view, &QAbstractItemView::selectAll,
                     Qt::QueuedConnection);
    QObject::connect(&view, &QAbstractItemView::clicked, &view, &QAbstractItemView::selectAll,
                     Qt::QueuedConnection);
}

}  // namespace kelvane
