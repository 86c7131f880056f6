// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/posix/fault_report.h"
#include "platform/user_defaults.h"

#include <memory>
#include <string>

namespace vorpel::platform {

class WorkQueue;

/// Preferences that last, in one JSON file (posix/preferences_file.h). Every change is soon saved on a work
/// queue, as a whole file that takes the old one's place; several changes at once cost one save, and the
/// last content wins. Whatever cannot be read is reported and never overwritten. Any thread may call. The
/// file belongs to one object of one process at a time: of two, the last to save wins.
class FileUserDefaults final : public UserDefaults {
public:
    /// Reads the file; a missing one is empty. A damaged one is set aside under another name, and what
    /// could be read of it is kept. The queue must outlive the object, but may drop what it was handed.
    FileUserDefaults(const std::string& path, WorkQueue& queue, FaultReport report);

    /// Saves what is not saved yet. Nothing is reported after this.
    ~FileUserDefaults() override;
    FileUserDefaults(const FileUserDefaults&) = delete;
    FileUserDefaults& operator=(const FileUserDefaults&) = delete;

    void setObject(const std::string& key, std::optional<Value> value) override;

    /// Saves on the caller's thread, behind a save that is under way. A failure is reported.
    void synchronize() override;

protected:
    [[nodiscard]] std::optional<Value> storedObject(const std::string& key) const override;

private:
    class Store;
    void saveSoon();

    WorkQueue& queue_;
    std::shared_ptr<Store> store_;  // shared with what stands in the queue
};

}  // namespace vorpel::platform
