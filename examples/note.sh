#!/bin/sh
# SPDX-FileCopyrightText: The Quorbit authors
# SPDX-License-Identifier: GPL-3.0-or-later

# The script step of demo.qrb: notes which files there are now that the entries before it are done.

set -e
cd "$(dirname "$0")/work"
LC_ALL=C find . -type f ! -name 8-note.txt | sort >8-note.txt
