// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/file_user_defaults.h"

#include "platform/posix/preferences_file.h"
#include "platform/work_queue.h"

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <utility>

namespace vorpel::platform {
namespace {

/// Where a link leads: saving there leaves the link as it is.
std::string resolved(const std::string& path) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

}  // namespace

/// The values and their way to the disk.
class FileUserDefaults::Store {
public:
    Store(const std::string& path, FaultReport report) : path_(resolved(path)), report_(std::move(report)) {
        FoundPreferences found = readPreferences(path_);
        values_ = std::move(found.values);
        untouchable_ = found.untouchable;
        // What was read out of a file that now bears another name is nowhere under this one.
        if (found.setAside && !values_.empty()) changes_ = 1;
        if (found.fault && report_) report_(*found.fault);
    }

    [[nodiscard]] std::optional<Value> value(const std::string& key) const {
        const std::lock_guard lock(mutex_);
        const auto found = values_.find(key);
        return found == values_.end() ? std::nullopt : std::optional<Value>(found->second);
    }

    void setValue(const std::string& key, std::optional<Value> value) {
        const std::lock_guard lock(mutex_);
        const auto found = values_.find(key);
        const bool same = found == values_.end() ? !value : value && found->second == *value;
        if (same) return;
        if (value) {
            values_.insert_or_assign(key, std::move(*value));
        } else {
            values_.erase(found);
        }
        ++changes_;
    }

    /// @return whether there is something to save that nobody has been asked to save
    [[nodiscard]] bool beginSave() {
        const std::lock_guard lock(mutex_);
        if (saveAwaited_ || savedChanges_ == changes_) return false;
        saveAwaited_ = true;
        return true;
    }

    void save() {
        const std::lock_guard saving(saving_);
        saveWhatIsNew();
    }

    /// The last save: what still stands in a queue will find nothing to do.
    void close() {
        const std::lock_guard saving(saving_);
        saveWhatIsNew();
        closed_ = true;
    }

private:
    void saveWhatIsNew() {
        if (closed_) return;
        Preferences values;
        std::uint64_t changes = 0;
        {
            const std::lock_guard lock(mutex_);
            saveAwaited_ = false;
            if (savedChanges_ == changes_) return;
            values = values_;
            changes = changes_;
        }
        const std::optional<std::string> fault =
            untouchable_ ? path_ + ": preferences not saved: what lies there could not be read or set aside"
                         : writePreferences(path_, values);
        if (fault) {
            if (report_) report_(*fault);
            return;
        }
        const std::lock_guard lock(mutex_);
        savedChanges_ = changes;
    }

    const std::string path_;
    const FaultReport report_;
    bool untouchable_ = false;

    std::mutex saving_;  // held while the file is written, so that a later content is never overtaken
    bool closed_ = false;

    mutable std::mutex mutex_;  // guards what follows; never held while the disk works
    Preferences values_;
    std::uint64_t changes_ = 0;
    std::uint64_t savedChanges_ = 0;
    bool saveAwaited_ = false;
};

FileUserDefaults::FileUserDefaults(const std::string& path, WorkQueue& queue, FaultReport report)
    : queue_(queue), store_(std::make_shared<Store>(path, std::move(report))) {
    saveSoon();
}

FileUserDefaults::~FileUserDefaults() {
    store_->close();
}

void FileUserDefaults::setObject(const std::string& key, std::optional<Value> value) {
    store_->setValue(key, std::move(value));
    saveSoon();
}

void FileUserDefaults::synchronize() {
    store_->save();
}

std::optional<UserDefaults::Value> FileUserDefaults::storedObject(const std::string& key) const {
    return store_->value(key);
}

void FileUserDefaults::saveSoon() {
    if (store_->beginSave()) queue_.async([store = store_] { store->save(); });
}

}  // namespace vorpel::platform
