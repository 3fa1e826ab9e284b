#!/bin/sh
# The manual shows no code but programs that other tests build, run and compare.
set -eu
cd "$(dirname "$0")/../.."
bad=0
if grep -rnE "^ *\.\. (code|code-block|sourcecode|parsed-literal)::" docs/manual --include=*.rst || grep -rn "::$" docs/manual --include=*.rst | grep -v ":\.\. "; then
    echo "the manual: code that nothing runs" >&2
    bad=1
fi
for file in $(grep -rhoE 'literalinclude:: /examples/[^ ]+' docs/manual | sed 's/.*:: .//' | sort -u); do
    [ -f "$file" ] || { echo "the manual: $file is missing" >&2; bad=1; }
    case $file in
    *.txt) ;;
    examples/shell/*.sh | examples/python/*.py) [ -f "${file%.*}.txt" ] || { echo "$file: what does it print?" >&2; bad=1; } ;;
    *) grep -q "$(basename "$file")\|$(basename "${file%.*}")[ )]" examples/CMakeLists.txt || { echo "$file is not built" >&2; bad=1; } ;;
    esac
done
exit $bad
