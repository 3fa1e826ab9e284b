"""A telemetry stream of CCSDS unsegmented time codes to UTC: four octets of seconds and two of fractions since 1980-01-06."""
import numpy as np

import kitlib as kl

config = kl.CucConfig(cuc_type=kl.CucType.TIME_FIELD_ONLY, epoch_type=kl.CucEpoch.EPOCH_1980, n_coarse=4, n_fine=2)
seconds = 1466065440 + np.arange(5) * 17.25
codes = np.round(seconds * 65536).astype(">u8").view(np.uint8).reshape(-1, 8)[:, 2:]  # as six octets each
stream = codes.tobytes()

packets = np.frombuffer(stream, np.uint8).reshape(-1, 6)
gps = kl.time_cuc_to_processing(packets, config=config, ref="GPS")
for octets, text in zip(packets, kl.time_processing_to_ascii(gps, ref_in="GPS", fmt_out=43, ref_out="UTC")):
    print(octets.tobytes().hex(" "), text)
