#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
exec python3 -B "$(dirname "$0")/display_test.py"
