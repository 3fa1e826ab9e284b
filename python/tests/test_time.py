"""Texts, datetime64, datetime and astropy's Time to MJD2000 and back."""
import datetime

import numpy as np
import pytest

import kitlib as kl

NOON = 9668.5  # 2026-06-21T12:00:00
TEXTS = ["2026-06-21T12:00:00", "2026-06-21T12:00:00Z", "2026-06-21T12:00:00.0000Z", "2026-172T12:00:00Z", "2026-172T12:00:00.000",
         "2026-06-21_12:00:00", "2026-06-21 12:00:00", "2026-06-21_12:00:00.000000", "20260621_120000", "20260621_120000000000",
         "21-JUN-2026 12:00:00", "21-JUN-2026 12:00:00.000000", "20260621T120000", "UTC=2026-06-21_12:00:00",
         "UTC=20260621T120000000000", "UTC=21-JUN-2026 12:00:00"]


def test_every_layout():
    assert kl.mjd2000(TEXTS).tolist() == [NOON] * len(TEXTS)
    assert [kl.mjd2000(t) for t in TEXTS] == [NOON] * len(TEXTS)
    assert kl.mjd2000(np.array(TEXTS[:4]).reshape(2, 2)).shape == (2, 2)
    assert kl.mjd2000(np.array(TEXTS, "S")).tolist() == [NOON] * len(TEXTS)
    assert kl.mjd2000([]).shape == kl.mjd2000(np.array([], "U4")).shape == kl.time_ascii_to_processing([]).shape == (0,)
    assert kl.mjd2000("GPS=2026-06-21_12:00:00", ref="GPS") == NOON
    assert kl.mjd2000(["2026-06-21T12:00:00Z", "UTC=20260621T120000"], ref="GPS").tolist() == [NOON + 18 / 86400] * 2


COLUMN = ["2026-06-21T12:00:00.000000", "2026-06-21T12:00:00.00000", "2026-06-21T12:00:00.000000\0Z", "", "\0" + "2026-06-21T12:00:00.000000",
          "2026-06-21T12:00:00.00000\u0660", "2026-06-21T12:00:00.00000\u0130", "2026-06-21T12:00:00.000000 ", "2026-06-21T12:00:00.000000" + 40 * "x"]


@pytest.mark.parametrize("width", [0, 27, 40, 63, 64, 65, 200])
@pytest.mark.parametrize("kind", ["U", ">U", "S"])
def test_columns_of_texts(width, kind):
    """Wherever in a column an odd text stands, it alone is refused: too short or long, empty, not ASCII, with a zero inside."""
    texts = [COLUMN[0]] * 300
    for k, odd in enumerate(COLUMN):
        if (width == 0 or len(odd) <= width) and (kind != "S" or odd.isascii()):
            texts[k * 33] = texts[299 - k] = odd
    longest = max(width, max(len(t) for t in texts), 1)
    column = np.array([t.encode() for t in texts], f"S{longest}") if kind == "S" else np.array(texts, f"{kind}{longest}")
    good = np.array([t == COLUMN[0] for t in texts])
    for given in (column, np.repeat(column, 2)[::2], column.reshape(3, 100)):
        days, status = kl.time_ascii_to_processing(given, fmt_in=43, errors="nan", return_status=True)
        assert np.array_equal(status.ravel() == 0, good) and np.array_equal(days.ravel(), np.where(good, NOON, np.nan), equal_nan=True)
        back = kl.time_ascii_to_ascii(given, fmt_in=43, fmt_out=41, errors="nan").ravel()
        assert back.tolist() == ["2026-06-21T12:00:00" if g else "" for g in good]
    assert np.array_equal(kl.time_processing_to_ascii(np.where(good, NOON, np.nan), errors="nan"), np.where(good, COLUMN[0], ""))


def test_every_day_of_ordinals():
    days = np.arange("1950-01-01", "2099-12-31", dtype="M8[D]")
    year = days.astype("M8[Y]")
    ordinal = np.char.add(np.char.add(np.datetime_as_string(year), "-"), np.char.zfill(((days - year.astype("M8[D]")).astype(int) + 1).astype("U3"), 3))
    assert np.array_equal(kl.mjd2000(np.char.add(ordinal, "T00:00:00Z")), (days - np.datetime64("2000-01-01")).astype(float))


REFUSED = ["2026-06-21", "2026-06-21T25:00:00", "2026-13-21T00:00:00", "2025-366T00:00:00", "2026-000T00:00:00", "2026-02-29T00:00:00",
           "21-JUX-2026 12:00:00", "", "GPS=2026-06-21_12:00:00Z", "2026-06-21T12:00:00\0Z", "2026-06-21T12:00:00" + 40 * "0", "2026-06-21T12:00:60", "1949-12-31T00:00:00",
           "2026-06-21T12:00:00+01:00", "２０２６-06-21T12:00:00"]


@pytest.mark.parametrize("text", REFUSED)
def test_refused_texts(text):
    with pytest.raises((ValueError, kl.KitError)):
        kl.mjd2000(text)
    with pytest.raises((ValueError, kl.KitError)):
        kl.mjd2000(["2026-06-21T12:00:00", text])


def test_decimals():
    assert abs(kl.mjd2000("2026-06-21T12:00:00.123456789Z") - NOON - 0.123457 / 86400) < 2e-12  # microseconds
    assert kl.mjd2000("2026-06-21T12:00:00.5") - NOON == pytest.approx(0.5 / 86400, abs=2e-12)


def test_datetime64():
    for unit in ("D", "h", "s", "ms", "us", "ns"):
        assert kl.mjd2000(np.datetime64("2026-06-21", unit)) == 9668.0
    instants = np.datetime64("1950-01-01T00:00:00.123456", "us") + np.arange(0, 150 * 365, 11).astype("m8[D]")
    days = kl.mjd2000(instants)
    assert np.array_equal(kl.to_datetime64(days), instants)
    assert np.isnan(kl.mjd2000(np.datetime64("NaT", "s"))) and np.isnat(kl.to_datetime64(np.nan))
    assert np.array_equal(kl.mjd2000(instants[:3].reshape(3, 1)), days[:3].reshape(3, 1))
    with pytest.raises(ValueError):
        kl.to_datetime64(1e9, "ns")


def test_datetime():
    utc = datetime.datetime(2026, 6, 21, 12, tzinfo=datetime.timezone.utc)
    summer = datetime.datetime(2026, 6, 21, 14, tzinfo=datetime.timezone(datetime.timedelta(hours=2)))
    assert kl.mjd2000(utc) == kl.mjd2000(summer) == kl.mjd2000(datetime.datetime(2026, 6, 21, 12)) == NOON
    assert kl.mjd2000([utc, summer]).tolist() == [NOON, NOON]
    for wrong in (lambda: kl.mjd2000(utc, ref="GPS"), lambda: kl.mjd2000("x", ref="ET"),
                  lambda: kl.mjd2000("2026-06-21T12:00:00", ref="UNDEF")):
        with pytest.raises(ValueError):
            wrong()
    for wrong in (3.5, None, [utc, 1], np.ma.masked_array(np.array(["2026-06-21"], "M8[D]"))):
        with pytest.raises(TypeError):
            kl.mjd2000(wrong)


def test_astropy():
    time = pytest.importorskip("astropy.time")
    for text in ("2016-12-31T23:59:59.250", "2017-01-01T00:00:00", "2026-06-21T12:00:00"):
        instant = time.Time(text, scale="utc")
        assert abs(kl.mjd2000(instant) - kl.mjd2000(text)) < 2e-12
        for ref in ("TAI", "GPS"):
            expected = kl.time_processing_to_processing(kl.mjd2000(text), ref_in="UTC", ref_out=ref)
            assert abs(kl.mjd2000(instant, ref=ref) - expected) < 1.2e-11  # the library's microsecond
