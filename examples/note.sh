#!/bin/sh
# SPDX-FileCopyrightText: The Quorbit authors
# SPDX-License-Identifier: GPL-3.0-or-later

# The script entry of demo.qrb: lists the files that the entries before it have left behind.

set -e
cd "$(dirname "$0")/work"
LC_ALL=C find . -path ./home -prune -o -type f ! -name 8-note.txt -print | sort >8-note.txt
