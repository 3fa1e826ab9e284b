"""A CSV of UTC texts to GPS weeks and seconds of the week."""
import csv
import io

import kitlib as kl

FILE = io.StringIO("""what,utc
before the leap second,2016-12-31T23:59:59.500000
inside it,2016-12-31T23:59:60.500000
after it,2017-01-01T00:00:00.500000
roll-over of the week,2026-06-20T23:59:42.000000
""")

rows = list(csv.DictReader(FILE))
texts = [row["utc"] for row in rows]
weeks = kl.time_ascii_to_transport(texts, fmt_in=43, ref_in="UTC", fmt_out=42, ref_out="GPS")
for row, (week, second, micro, _) in zip(rows, weeks):
    print(f"{row['what']:24}{row['utc']}  week {week} {second:6}.{micro:06} s")
