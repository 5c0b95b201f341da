// What a screen reader hears of the kit's own widgets: lamps, bars and switches with their state as a value.
// Every such widget calls installAccessibleKit() once in its constructor.
#pragma once

namespace kelvane {

void installAccessibleKit();

}  // namespace kelvane
