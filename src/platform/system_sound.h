// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::platform {

/// Short sounds by number. Any thread may call; a call may take as long as the sound.
class SystemSound {
public:
    virtual ~SystemSound() = default;
    virtual void play(int number) = 0;
};

}  // namespace vorpel::platform
