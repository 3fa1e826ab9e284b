kitlib time 2016-12-31T23:59:60 --to GPS
kitlib sun 2026-06-21T08:24:00
kitlib geoid 23.44 54.45
