// Models of Willow: even codes 115 V and 230 V up to 2.2 kW, odd 460 V up to 3.7 kW.
#include "catalogue/families/model_data.h"

namespace kelvane {

// clang-format off
constinit const std::array<ModelTexts, 40> WillowModels = modelTable<40>({
    {0, {"115V/230V", "1.6A", "0.2 ( 0.25 )"}},
    // Kept: "Reserve" in the product data; no such model is sold.
    {1, {"460V", "---", "Reserve"}},
    {2, {"115V/230V", "2.5A", "0.4 ( 0.5 )"}},
    {3, {"460V", "1.5A", "0.4 ( 0.5 )"}},
    {4, {"115V/230V", "5.0A", "0.75 ( 1 )"}},
    {5, {"460V", "3.0A", "0.75 ( 1 )"}},
    {6, {"115V/230V", "7.0A", "1.5 ( 2 )"}},
    {7, {"460V", "4.0A", "1.5 ( 2 )"}},
    {8, {"115V/230V", "10.0A", "2.2 ( 3 )"}},
    {9, {"460V", "5.0A", "2.2 ( 3 )"}},
    {11, {"460V", "8.2A", "3.7 ( 5 )"}},
});
// clang-format on

}  // namespace kelvane
