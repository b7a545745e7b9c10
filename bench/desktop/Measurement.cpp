#include "Measurement.h"

#include <array>

namespace corvane::bench {

std::span<const Measurement> measurements() {
    static constexpr std::array all{Measurement{"period", measurePeriod},
                                    Measurement{"highest-rate", measureHighestRate},
                                    Measurement{"engine", measureEngine},
                                    Measurement{"click-cost", measureClickCost},
                                    Measurement{"hot-key", measureHotKey},
                                    Measurement{"stop", measureStop},
                                    Measurement{"tracking", measureTracking},
                                    Measurement{"idle", measureIdle},
                                    Measurement{"start", measureStart},
                                    Measurement{"instructions", measureInstructions},
                                    Measurement{"in-process", measureInProcess},
                                    Measurement{"binary", measureBinary}};
    return all;
}

} // namespace corvane::bench
