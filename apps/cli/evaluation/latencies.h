// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <json/json.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vorpel::cli {

/// Times of single requests in microseconds.
class Latencies {
public:
    void add(double microseconds) { times_.push_back(microseconds); }

    /// Median, 95th and 99th percentile, and how many there were.
    [[nodiscard]] Json::Value toJson() const {
        std::vector<double> sorted = times_;
        std::sort(sorted.begin(), sorted.end());
        const auto at = [&](double share) {
            if (sorted.empty()) return 0.0;
            return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
        };
        Json::Value json(Json::objectValue);
        json["requests"] = static_cast<Json::UInt64>(sorted.size());
        json["us_median"] = at(0.5);
        json["us_p95"] = at(0.95);
        json["us_p99"] = at(0.99);
        return json;
    }

private:
    std::vector<double> times_;
};

}  // namespace vorpel::cli
