# Google Benchmark's table: the CPU time of each benchmark, and how many times slower its rival of the same run is.
match($0, / +[0-9.e+]+ (ns|us|ms) +[0-9.e+]+ (ns|us|ms) +[0-9]+/) {
    name = substr($0, 1, RSTART - 1)
    split(substr($0, RSTART, RLENGTH), field, " +") # "", time, unit, CPU time, unit, iterations
    printf "%-72s %10.1f %s", name, field[4], field[5]
    own = name
    if (sub(/\/rival.*/, "", own) && own in time)
        printf "   %.1f times", field[4] / time[own]
    time[name] = field[4]
    print substr($0, RSTART + RLENGTH)
}
