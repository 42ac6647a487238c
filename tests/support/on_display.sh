#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a program under a virtual display of its own, so that programs which run at once take no focus from each other:
#   on_display.sh PROGRAM [ARGS]
exec xvfb-run -a -s "-screen 0 1600x1200x24" "$@"
