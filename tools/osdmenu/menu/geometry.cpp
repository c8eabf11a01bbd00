#include "menu/geometry.h"

#include "core/layout.h"

Geometry geometry_of(const Display &display)
{
    const layout_metrics metrics = layout_metrics_of(display.font_size, display.burst);
    return {display.width ? display.width : metrics.viewarea_width,
            display.height ? display.height : metrics.viewarea_height,
            line_height(metrics.text_size),
            metrics.text_size,
            metrics.rowspace,
            metrics.itemarea_y,
            metrics.itemarea_x,
            metrics.valuearea_x};
}
