"""What failed in a column, and why: status of each element, conditions, messages, warnings."""
import warnings
from typing import Any

import numpy as np

import kitlib as kl

t = np.array([9668.0, 40000.0, 9669.0, np.nan])
try:
    kl.sun(t)
except kl.KitError as error:
    print(error.function, [code.name for code in error.codes], error.status)
    print(error.messages[0])
    print("computed all the same:", np.isfinite(error.outputs.pos).all(axis=1))

both: Any = kl.sun(t, errors="nan", return_status=True)
sun, status = both
print("good rows:", sun.pos[status == 0].shape)

table = kl.TimeId.from_rows([[9600.0, 37, 0.05], [9700.0, 37, 0.06]])
with warnings.catch_warnings(record=True) as caught:
    warnings.simplefilter("always", kl.KitWarning)
    kl.time_processing_to_processing(9800.0, ref_in="UTC", ref_out="UT1", time=table)
for warning in caught:
    print("warning:", [code.name for code in getattr(warning.message, "codes")])
