#!/bin/sh
# Runs a Python command on the sanitized build; any finding ends in a failure.
# Usage: sanitized.sh CXX DIRECTORY COMMAND..., where DIRECTORY/site holds the build.
# Of what is still allocated at the end only what the module allocated counts: Python itself leaves
# much behind.
cxx=$1
directory=$(cd "$2" && pwd) # absolute, since tests change the directory
shift 2

preload=
for library in libasan.so libubsan.so libstdc++.so; do
  path=$($cxx -print-file-name=$library)
  if [ ! -e "$path" ]; then
    echo "missing: $library of '$cxx', which 'make sanitize' needs; try CXX=g++" >&2
    exit 1
  fi
  preload="$preload $path"
done

rm -f "$directory"/report.*
LD_PRELOAD=$preload PYTHONMALLOC=malloc PYTHONPATH="$directory/site:tests" \
  ASAN_OPTIONS=log_path="$directory/report",allocator_may_return_null=1,malloc_context_size=12 \
  UBSAN_OPTIONS=print_stacktrace=1 LSAN_OPTIONS=exitcode=0 "$@"
status=$?
if grep -lE "tavik_agent/|ERROR: AddressSanitizer|runtime error" "$directory"/report.* 2>/dev/null; then
  echo "the sanitizers found something, see the files above" >&2
  exit 1
fi
exit $status
