#!/bin/sh
# Says which of the three things that every command needs is missing, and how to name it:
# Python 3.13, its headers, a C++20 compiler. Usage: check-tools.sh PYTHON CXX
python=$1
cxx=$2
status=0

missing() {
  echo "missing: $1" >&2
  echo "  $2" >&2
  status=1
}

version=$("$python" -c 'import sys; print("%d.%d" % sys.version_info[:2])' 2>/dev/null)
if [ "$version" != 3.13 ]; then
  missing "Python 3.13 (tried '$python'${version:+, which is $version})" \
    "name it on the command line: make ... PYTHON=/path/to/python3.13"
elif include=$("$python" -c 'import sysconfig; print(sysconfig.get_path("include"))') &&
  [ ! -f "$include/Python.h" ]; then
  missing "the headers of Python 3.13 (no Python.h in '$include')" \
    "install them (python3.13-dev, say) or name a Python that has them: make ... PYTHON=/path/to/python3.13"
fi

object=$(mktemp)
if ! printf '#include <concepts>\n#include <span>\nstatic_assert(std::integral<int>);\n' |
  $cxx -std=c++20 -x c++ -c -o "$object" - >/dev/null 2>&1; then
  missing "a C++20 compiler (tried '$cxx')" \
    "name it on the command line: make ... CXX=/path/to/compiler"
fi
rm -f "$object"
exit $status
