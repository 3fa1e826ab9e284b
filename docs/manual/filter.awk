# For Doxygen: what follows the sentence of @return is a paragraph of its own, and "@param x, y, z what" is three arguments.
/@return/ { returns = 1 }
returns && /\*\// { returns = 0 }
returns && !/@return/ && ended && /^[ \t]*\* [A-Z0-9]/ && !/^[ \t]*\* (KL_|NULL)/ { print " *"; returns = 0 }
/@param(\[[a-z,]*\])? +[a-z0-9_]+, / {
    match($0, /@param(\[[a-z,]*\])? +/)
    head = substr($0, 1, RSTART + RLENGTH - 1)
    rest = substr($0, RSTART + RLENGTH)
    n = 0
    while (match(rest, /^[a-z0-9_]+, */)) {
        names[++n] = rest
        sub(/, .*/, "", names[n])
        rest = substr(rest, RLENGTH + 1)
    }
    last = rest
    sub(/ .*/, "", last)
    for (i = 1; i <= n; ++i)
        print head names[i] " as " last
    $0 = head rest
}
{ print; ended = /[.A-Z]$/ }
