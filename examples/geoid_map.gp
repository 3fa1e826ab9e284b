# World map of the geoid from the file of geoid_map: needs `grid` and `picture`.
set terminal png truecolor enhanced font "DejaVuSans,10" size 960,520
set output picture
set title "Height of the EGM96 geoid above the WGS84 ellipsoid, degree 360"
set xrange [0:360]
set yrange [-90:90]
set xtics 30 out nomirror format "%g°"
set ytics 30 out nomirror format "%g°"
set xlabel "longitude east"
set ylabel "latitude"
set cbrange [-110:90]
set cbtics 20
set cblabel "m"
set palette maxcolors 100 defined (-110 "#2a0a5e", -70 "#2b5fc4", -30 "#58c3d8", 0 "#f4f4e8", 30 "#f6c860", 60 "#e2662f", 90 "#7d0f14")
set label "-107" at 78.75,4.75 center front textcolor rgb "white"
set label "+85" at 147.25,-8.25 center front textcolor rgb "white"
plot grid matrix nonuniform with image notitle
