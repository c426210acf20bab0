# SPDX-FileCopyrightText: The Quorbit authors
# SPDX-License-Identifier: GPL-3.0-or-later

# Checks which folders of src/ may include which others.
#
#   awk -v widget_headers="QWidget QIcon ..." -f tools/layers.awk src/engine/run_log.h ...
#
# Paths are relative to the repository. Prints one line for each include that breaks the rule; exit 1 if there are any.

BEGIN {
    may["platform"] = "platform"
    may["platform/posix"] = "platform platform/posix"
    may["platform/shell"] = "platform platform/shell platform/posix platform/posix/shell"
    may["platform/posix/shell"] = "platform platform/shell platform/posix platform/posix/shell"
    may["batch"] = "platform batch"
    may["engine"] = "platform batch engine"
    may["document"] = "platform batch engine document"
    below = "platform platform/shell batch engine document"
    may["engine/dialog"] = below " engine/dialog"
    may["panes"] = below " look panes"
    may["dialogs"] = below " panes dialogs"
    may["look"] = below " look"
    may["help"] = below " look help"
    may["app"] = "platform batch engine app"
    may["app/window"] = below " engine/dialog panes dialogs look help app app/window"

    windowless["platform"]
    windowless["platform/posix"]
    windowless["platform/shell"]
    windowless["platform/posix/shell"]
    windowless["batch"]
    windowless["engine"]
    windowless["app"]
    windowless["document"]

    system_headers = "unistd.h fcntl.h errno.h cerrno dirent.h signal.h csignal pthread.h poll.h spawn.h termios.h pwd.h " \
        "grp.h glob.h fnmatch.h ftw.h mntent.h dlfcn.h netdb.h syslog.h utime.h wait.h langinfo.h windows.h"
    count = split(system_headers, names, " ")
    for (i = 1; i <= count; ++i) is_system_header[names[i]]

    count = split(widget_headers, names, " ")
    for (i = 1; i <= count; ++i) is_widget[names[i]]
}

FNR == 1 {
    folder = FILENAME
    sub(/^src\//, "", folder)
    sub(/\/[^\/]*$/, "", folder)
    if (!(folder in may)) fault(folder " is not a layer", "put the file into one of the folders of src/")
}

/^[ \t]*#[ \t]*include[ \t]*"/ {
    split($0, parts, "\"")
    header = parts[2]
    if (header ~ /\.moc$/ || !(folder in may)) next
    target = header
    if (!sub(/\/[^\/]*$/, "", target) || target ~ /\.\./)
        fault("\"" header "\" is not a path from src/", "write the folder, as in \"platform/error.h\"")
    else if (!(target in may))
        fault("\"" header "\" is in no layer", "write the path from src/")
    else if (!allowed(folder, target))
        fault(folder " must not include from " target,
              "let " folder " own an abstract class that " target " implements, or move the code")
}

(folder in windowless) && /^[ \t]*#[ \t]*include[ \t]*</ {
    header = $0
    gsub(/^[^<]*<|>.*$/, "", header)
    if (header ~ /^Qt(Widgets|Gui)\// || header in is_widget)
        fault(folder " must not see a window, and <" header "> is of one", "use Qt Core or none of Qt here")
}

# System headers of one operating system, and errno.
!(folder ~ /^platform\/posix(\/|$)/) && /^[ \t]*#[ \t]*include[ \t]*</ {
    header = $0
    gsub(/^[^<]*<|>.*$/, "", header)
    if (header in is_system_header || header ~ /^(sys|linux|net|netinet|arpa|asm|bits)\//)
        fault("<" header "> belongs to one system", "call it in src/platform/posix, through a header of src/platform")
}

END { exit broken }

function allowed(from, to,    list, i, n)
{
    n = split(may[from], list, " ")
    for (i = 1; i <= n; ++i) if (list[i] == to) return 1
    return 0
}

function fault(what, remedy)
{
    printf "%s:%d: %s; %s\n", FILENAME, FNR, what, remedy
    broken = 1
}
