cat >orbit.csv <<'END'
time,x,y,z
2026-03-20T00:00:00,42164e3,0,0
2026-03-20T00:10:00,42123867,1839133,0
2026-03-20T12:00:00,-42164e3,0,0
END
kitlib eclipse --frame TOD <orbit.csv
