cat >teme.csv <<'END'
utc,x,y,z
2026-06-21T08:24:00,-2466543,6437123,1517234
2026-06-21T08:25:00,-2543720,6494800,1072300
END
kitlib frame --from TEME --to EF --columns utc,x,y,z <teme.csv >fixed.csv
kitlib geodetic --columns x_EF,y_EF,z_EF --json <fixed.csv
