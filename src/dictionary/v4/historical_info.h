// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// How a learned word or pair stands: when it was last used, in seconds since 1970, how well it is known,
/// and how often it was used since it reached that level. A default one says that nothing is known.
class HistoricalInfo {
public:
    static constexpr int NOT_A_TIMESTAMP = -1;

    HistoricalInfo() = default;
    HistoricalInfo(int timestamp, int level, int count)
        : timestamp_(timestamp), level_(level), count_(count) {}

    [[nodiscard]] bool isValid() const { return timestamp_ != NOT_A_TIMESTAMP; }
    [[nodiscard]] int getTimeStamp() const { return timestamp_; }
    [[nodiscard]] int getLevel() const { return level_; }
    [[nodiscard]] int getCount() const { return count_; }

private:
    int timestamp_ = NOT_A_TIMESTAMP;
    int level_ = 0;
    int count_ = 0;
};

}  // namespace wordengine
