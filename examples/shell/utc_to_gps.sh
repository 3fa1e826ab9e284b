cat >utc.csv <<'END'
what,utc
before the leap second,2016-12-31T23:59:59.5
inside it,2016-12-31T23:59:60.5
after it,2017-01-01T00:00:00.5
no such day,2017-02-30T00:00:00
END
kitlib time --columns utc --to GPS <utc.csv
