/// The statistics of a continuous field by intervals.
#pragma once

#include <memory>
#include <vector>

namespace QVXML_940 {
class XMLElement;
}

namespace QVCommon_940 {

/// "ContStats": an "Interval" between each two neighbouring cut points, then the "Array" of the
/// frequencies. Without cut points it stays empty; a single one makes no interval. A margin that is
/// missing or not finite is left out: the interval is open to that side.
std::unique_ptr<QVXML_940::XMLElement> MakeContStats(const std::vector<double> & cutPoints,
                                                     const std::vector<double> & frequencies,
                                                     bool openLeft);

}  // namespace QVCommon_940
