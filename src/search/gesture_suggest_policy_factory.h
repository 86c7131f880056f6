// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

class SuggestPolicy;

/// Where a policy for drawn words can be put in. Install one before the first dictionary is made.
class GestureSuggestPolicyFactory {
public:
    using FactoryMethod = const SuggestPolicy* (*)();

    GestureSuggestPolicyFactory() = delete;

    static void setGestureSuggestPolicyFactoryMethod(FactoryMethod factoryMethod) {
        sGestureSuggestFactoryMethod = factoryMethod;
    }

    /// Null while no method is installed.
    static const SuggestPolicy* getGestureSuggestPolicy() {
        return sGestureSuggestFactoryMethod ? sGestureSuggestFactoryMethod() : nullptr;
    }

private:
    inline static FactoryMethod sGestureSuggestFactoryMethod = nullptr;
};

}  // namespace wordengine
