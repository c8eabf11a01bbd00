// The walk over a page's rows from the top down: which of them are painted, and where. The painter makes its way by it,
// and so does whoever measures a page without painting it.
//
// A pass finds the place of each row that takes part, and steps past it. The first row below the view ends it.
#pragma once

#include "core/fixed_items.h"
#include "core/state.h"
#include "core/wrapping.h"

// How far a pass has come.
struct page_walk {
    int y;            // of the next row to be painted
    int loopcount;    // rows walked
    int enabledcount; // enabled rows walked
};

// What of a row decides where it stands, and where those below it do.
struct walked_row {
    unsigned int height;
    bool is_enabled;
    const char *name;
};

inline struct walked_row walked(const struct osdmenu_item *row)
{
    return {row->view.viewbitmap.height, !is_disabled(row), row->name};
}

enum row_place { ROW_PAINTED, ROW_NOT_PAINTED, ROW_BELOW_VIEW };

// A row with a value and nobody to ask for it does not exist for the pass.
inline bool takes_part(const struct osdmenu_item *row)
{
    return row->item_values.type == VALUE_NONE || row->action;
}

// Hidden rows and rows above the scroll top are not painted. They are held against the view's lower edge all the same.
inline enum row_place place_of_row(const struct page_walk *walk, const struct walked_row *row, int scroll_top,
                                   int view_height)
{
    if (row->height + static_cast<unsigned int>(walk->y) >= static_cast<unsigned int>(view_height))
        return ROW_BELOW_VIEW;
    return row->is_enabled && walk->loopcount >= scroll_top ? ROW_PAINTED : ROW_NOT_PAINTED;
}

// Pixels from a painted row to the next one.
inline int row_step(const struct walked_row *row, int gap)
{
    return wrapping_add(static_cast<int>(row->height), is_title(row->name) ? wrapping_mul(2, gap) : gap);
}

inline void step_past_row(struct page_walk *walk, const struct walked_row *row, enum row_place place, int gap)
{
    if (place == ROW_PAINTED)
        walk->y = wrapping_add(walk->y, row_step(row, gap));
    if (row->is_enabled)
        walk->enabledcount++;
    walk->loopcount++;
}
