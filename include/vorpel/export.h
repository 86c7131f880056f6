// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Stands before each class or function that a program outside the library may use; all else stays
/// inside it.
#define VORPEL_EXPORT __attribute__((visibility("default")))

/// Stands before what an exported class keeps for itself.
#define VORPEL_INTERNAL __attribute__((visibility("hidden")))
