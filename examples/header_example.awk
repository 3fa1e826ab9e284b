# The examples in the comments of a header, @code{.cpp} to @endcode, each in a block of its own: the program, or with
# -v expected=1 the lines that it prints, which stand behind "// -> " in their order.
BEGIN {
    if (!expected) {
        print "#include \"orbkit.hpp\"\n"
        print "#include <cmath>\n#include <cstdio>\n#include <string>\n#include <vector>\n"
        print "int main()\n{"
    }
}
/@endcode/ {
    if (!expected)
        print "    }"
    inside = 0
}
inside {
    sub(/^ *\* ?/, "")
    if (!expected)
        print "        " $0
    else if (match($0, /\/\/ -> /))
        print substr($0, RSTART + RLENGTH)
}
/@code\{\.cpp\}/ {
    if (!expected)
        print "    {"
    inside = 1
}
END {
    if (!expected)
        print "}"
}
