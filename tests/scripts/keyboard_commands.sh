#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
exec python3 -B "$(dirname "$0")/keyboard_commands_test.py"
