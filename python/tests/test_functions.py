"""Arrays, scalars, selectors, errors: what a caller of any function meets."""
import threading
import warnings

import numpy as np
import pytest

import kitlib as kl
from kitlib import _memory
from needs import has

T = 9668.35 + np.arange(40) / 100
R = np.array([7068500.0, 1142000.0, 0.0]) + 1e3 * np.arange(120).reshape(40, 3)
V = np.array([170.1, -1096.3, 7379.0]) + np.arange(120).reshape(40, 3)
Q = np.array([0.0, 0.6, 0.0, 0.8])
CUC = kl.CucConfig(kl.CucType.TIME_FIELD_ONLY, kl.CucEpoch.EPOCH_1958, 0, 0.0, 4, 3)
P_FIELD = kl.CucConfig(kl.CucType.WITH_P_FIELD, kl.CucEpoch.EPOCH_1958, 0, 0.0, 4, 2)

# A call for arrays, and the arguments that vary: (name, function, arguments).
CALLS = [
    ("sun", kl.sun, (T,)),
    ("planet by name", lambda t: kl.planet(t, planet="mars", ref="TAI"), (T,)),
    ("states", lambda t, r, v: kl.change_cart_cs(t, r, v, cs_in="TEME", cs_out=kl.Frame.EF), (T, R, V)),
    ("positions alone", lambda t, r: kl.change_cart_cs(t, r, cs_in=1, cs_out="TOD"), (T, R)),
    ("scales", lambda t: kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1"), (T,)),
    ("text", lambda t: kl.time_processing_to_ascii(t, fmt_out=13, ref_out="GPS"), (T,)),
    ("transport", lambda t: kl.time_processing_to_transport(t, fmt_out=42, ref_out="GPS"), (T,)),
    ("CUC", lambda t: kl.time_processing_to_cuc(t, config=CUC, ref="TAI"), (T,)),
    ("quaternion", kl.quaternions_to_vectors, (np.tile(Q, (40, 1)),)),
    ("interpolation", lambda t: kl.quaternions_interpol(9668.0, Q, 9669.0, -Q, t), (T,)),
    ("geoid", lambda a, b: kl.geoid(a, b, max_degree=36), (np.linspace(-90, 90, 40), np.linspace(0, 360, 40))),
]


def flat(result):
    return [np.asarray(x) for x in (result if isinstance(result, tuple) else (result,))]


@pytest.mark.parametrize("name,call,arguments", CALLS, ids=[c[0] for c in CALLS])
def test_array_is_loop_of_scalars(name, call, arguments):
    whole = flat(call(*arguments))
    for i in (0, 17, 39):
        one = flat(call(*(float(a[i]) if a[i].ndim == 0 else a[i] for a in arguments)))
        for a, b in zip(whole, one):
            assert np.array_equal(a[i], b)
            assert a[i].shape == b.shape


@pytest.mark.parametrize("name,call,arguments", CALLS, ids=[c[0] for c in CALLS])
def test_shape_and_layout_do_not_matter(name, call, arguments):
    """Two axes, steps in memory, another byte order and read-only arrays give the same bits; inputs stay as they are."""
    whole = flat(call(*arguments))
    square = [a.reshape((4, 10) + a.shape[1:]) for a in arguments]
    stepped = [np.repeat(a, 2, axis=0)[::2].astype(">f8") for a in arguments]
    read_only = [a.copy() for a in arguments]
    for a in read_only:
        a.flags.writeable = False
    for given in (square, stepped, read_only):
        for a, b in zip(whole, flat(call(*given))):
            assert np.array_equal(a, b.reshape(a.shape))
    for a, b in zip(arguments, read_only):
        assert np.array_equal(a, b)


def test_broadcast():
    grid = kl.change_cart_cs(T[:, None], R[:3], cs_in="TOD", cs_out="EF")
    assert grid.pos.shape == (40, 3, 3)
    assert np.array_equal(grid.pos[7, 2], kl.change_cart_cs(T[7], R[2], cs_in="TOD", cs_out="EF").pos)
    assert kl.sun(np.empty((0, 5))).pos.shape == (0, 5, 3)
    assert kl.sun(9668).pos.dtype == np.float64 and kl.sun(np.float32(9668)).pos.shape == (3,)
    assert isinstance(kl.time_add(1.0, 2.0), float) and isinstance(kl.time_add(1, 2), float)


def test_mode_by_arguments():
    acc = np.zeros(3)
    assert not kl.change_cart_cs(9668.0, R[0], cs_in="TOD", cs_out="EF").vel.any()
    two = kl.change_cart_cs(9668.0, R[0], V[0], cs_in="TOD", cs_out="EF")
    assert two.vel.any() and not two.acc.any()
    assert kl.change_cart_cs(9668.0, R[0], V[0], acc, cs_in="TOD", cs_out="EF").acc.any()
    assert not kl.change_cart_cs(9668.0, R[0], V[0], acc, cs_in="TOD", cs_out="EF", mode="POS").vel.any()
    assert np.allclose(kl.geod_to_cart(0.0, 0.0, 0.0, None, None, 2.0).vel, [2.0, 0.0, 0.0])  # any rate is one


BAD = [
    ("last axis", ValueError, lambda: kl.change_cart_cs(T, np.zeros((40, 4)), cs_in="TOD", cs_out="EF")),
    ("no vector", ValueError, lambda: kl.quaternions_to_vectors(1.0)),
    ("lengths", ValueError, lambda: kl.change_cart_cs(T, R[:7], cs_in="TOD", cs_out="EF")),
    ("masked", TypeError, lambda: kl.sun(np.ma.masked_array(T, T > 9668.5))),
    ("masked without a mask", TypeError, lambda: kl.sun(np.ma.masked_array(T))),
    ("masked texts", TypeError, lambda: kl.time_ascii_to_processing(np.ma.masked_array(np.array(["2026-06-21T08:24:00"]), [True]))),
    ("masked octets", TypeError, lambda: kl.time_cuc_to_processing(np.ma.masked_array(np.zeros((2, 7), "u1")), config=CUC)),
    ("masked states", TypeError, lambda: kl.interpolate_states(np.ma.masked_array([0.5]), times=[0.0, 1.0], pos=R[:2], vel=V[:2])),
    ("masked records", TypeError, lambda: kl.ef_to_topocentric(R[0], origin=np.ma.masked_array([48.0, 11.0, 600.0], [True, False, False]))),
    ("complex", TypeError, lambda: kl.sun(T + 0j)),
    ("texts for numbers", TypeError, lambda: kl.sun("2026-06-21T08:24:00")),
    ("objects", TypeError, lambda: kl.sun([None, 1.0])),
    ("datetimes", TypeError, lambda: kl.sun(np.datetime64("2026-06-21"))),
    ("bools", TypeError, lambda: kl.sun(True)),
    ("fractions for counts", TypeError, lambda: kl.time_transport_to_processing([1.5, 0, 0, 0])),
    ("numbers for texts", TypeError, lambda: kl.time_ascii_to_processing(T)),
    ("not ASCII", kl.KitError, lambda: kl.time_ascii_to_processing("2026-06-21T08:24:0\u0660")),
    ("name of a selector", ValueError, lambda: kl.sun(T, ref="ET")),
    ("member of another class", TypeError, lambda: kl.sun(T, ref=kl.Frame.EF)),
    ("selector of no kind", TypeError, lambda: (kl.sun(T, ref=1), kl.sun(T, ref=1.0))),
    ("another class, equal to one that was good", TypeError, lambda: (kl.sun(9668.0, ref=1), kl.sun(9668.0, ref=kl.Planet.MERCURY))),
    ("count beyond C", ValueError, lambda: kl.time_transport_to_processing(np.array([1 << 63, 0, 0, 0], "u8"))),
    ("selector too large", ValueError, lambda: kl.sun(T, ref=1 << 70)),
    ("missing selector", TypeError, lambda: kl.planet(T)),
    ("missing argument", TypeError, lambda: kl.quaternions_interpol(0.0, Q, 1.0, None, 0.5)),
    ("errors", ValueError, lambda: kl.sun(T, errors="ignore")),
    ("time id", TypeError, lambda: kl.sun(T, time=kl.ModelId())),
    ("no record", TypeError, lambda: kl.ef_to_topocentric(R[0], origin=5.0)),
    ("text for a record", TypeError, lambda: kl.ef_to_topocentric(R[0], origin="48 11")),
    ("octets", TypeError, lambda: kl.time_cuc_to_processing([1, 2, 3], config=CUC)),
    ("too many octets", ValueError, lambda: kl.time_cuc_to_processing(b"x" * 20, config=CUC)),
    ("too few octets", ValueError, lambda: kl.time_cuc_to_processing(b"x" * 6, config=CUC)),
    ("more octets than the layout", ValueError, lambda: kl.time_cuc_to_processing(np.arange(16, dtype="u1").reshape(2, 8), config=CUC)),
    ("octets behind the layout", ValueError, lambda: kl.time_cuc_to_processing(b"x" * 19, config=CUC)),
    ("fewer octets than the P-field says", ValueError, lambda: kl.time_cuc_to_processing(b"\x1e\1\2\3\4\5", config=P_FIELD)),
    ("names of a record", TypeError, lambda: kl.time_processing_to_cuc(T, config={"cuc_type": 0})),
    ("text for an instant", TypeError, lambda: kl.star_catalog("2026-06-21T08:24:00")),
    ("text for an end", TypeError, lambda: kl.TimeId.from_files([], start="2026-01-01")),
    ("cone without a radius", ValueError, lambda: kl.star_catalog(9668.0, cone=(88.0, 7.0))),
    ("cone of radius 0", ValueError, lambda: kl.star_catalog(9668.0, cone=(88.0, 7.0, 0.0))),
    ("cone of four", ValueError, lambda: kl.star_catalog(9668.0, cone=(88.0, 7.0, 1.0, 1.0))),
    ("box of two", ValueError, lambda: kl.star_catalog(9668.0, box=(80.0, 90.0))),
    ("record of another clock", TypeError, lambda: kl.time_obt_to_time(1, 2, parameters=CUC)),
    ("negative count", ValueError, lambda: kl.time_obt_to_time(-1, 2, parameters=kl.ObtParamTarvos(21, 0.0, 0, 0, 1))),
]


@pytest.mark.parametrize("name,kind,call", BAD, ids=[b[0] for b in BAD])
def test_bad_input_is_an_exception(name, kind, call):
    with pytest.raises(kind):
        call()


def test_refused_scalar():
    with pytest.raises(kl.KitError) as caught:
        kl.sun(40000.0)
    assert caught.value.function == "kl_sun" and caught.value.codes == (kl.codes.sun.DATE_ERR,)
    assert caught.value.messages[0].endswith("Input date is out of range")
    for wrong in (np.nan, np.inf, -1e300):
        with pytest.raises(kl.KitError):
            kl.sun(wrong)
    with pytest.raises(kl.KitError) as caught:
        kl.sun(9668.0, ref=7)
    assert caught.value.codes == (kl.codes.sun.TIME_REF_ERR,)


SAID = [
    ("value", "400.0", lambda: kl.geoid(0.0, 400.0)),
    ("element", "^sun: element 1, t 40000.0, ref UTC: ", lambda: kl.sun([9668.0, 40000.0])),
    ("fields", r"^geod_to_cart: element \(1, 0\), latitude 95.0, ", lambda: kl.geod_to_cart([[0.0], [95.0]], 1.0, 2.0)),
    ("text", "^mjd2000: element 1, text '2026-01-01', ref UTC", lambda: kl.mjd2000(["2026-01-01T00:00:00", "2026-01-01"])),
    ("scalar", r"^geod_to_utm: lat 95, lon 0, zone 0: .* takes lat: deg, -84 to 84.*\(COMPUTATION_ERR\)$", lambda: kl.geod_to_utm(95, 0)),
    ("selector", r"^change_cart_cs: t 1.0, pos \[.*\], mode POS, cs_in 77, cs_out EF, ref UTC: .*\(CS_IN_ERR\)$", lambda: kl.change_cart_cs(1.0, R[0], cs_in=77, cs_out=7)),
    ("first of several, its value inside", r"element 1, latitude 0.0, longitude 400.0, .*\(400.000000\)", lambda: kl.geoid(0.0, [10.0, 400.0, 500.0])),
    ("octets", "text '2026-13-21T00:00:00'.*MONTH_ERR", lambda: kl.time_ascii_to_processing(np.array([b"2026-13-21T00:00:00"]), fmt_in=41)),
    ("record", r"mean \[10000000.0, 5.0, .*duration 1.0", lambda: kl.mean_motion((1e7, 5.0, 0.0, 0.0, 0.0, 0.0), 1.0)),
    ("clock", r"^time_obt_to_time: coarse 1, fine 2, parameters \[21, nan, 0, 0, 1\]: ", lambda: kl.time_obt_to_time(1, 2, parameters=kl.ObtParamTarvos(21, np.nan, 0, 0, 1))),
    ("readings", "^TimeId.from_values: tai 1000000000.0", lambda: kl.TimeId.from_values(1e9, 0, 0, 0)),
    ("model", "^ModelId: moon 3: ", lambda: kl.ModelId(moon=3)),
    ("states", r"^interpolate_states: element 1, t 9.0: ", lambda: kl.interpolate_states([0.5, 9.0], times=[0.0, 1.0], pos=np.ones((2, 3)), vel=np.ones((2, 3)))),
    ("polynomial", r"^poly_real_roots: c \[0.0, nan\]: ", lambda: kl.poly_real_roots([0.0, np.nan])),
    ("no conditions", "lat: deg, -90 to 90; lon", lambda: kl.geod_point(95.0, 0.0, 0.0, 0.0)),
    ("file", "/nope", lambda: kl.star_catalog(9668.0, file="/nope")),
]


@pytest.mark.parametrize("name,said,call", SAID, ids=[s[0] for s in SAID])
def test_errors_say_what_was_wrong(name, said, call):
    kl.sun([40000.0], errors="nan")  # messages of another call
    with pytest.raises(kl.KitError, match=said):
        call()


def test_every_refusal_has_its_constant():
    """Codes are found under the name of the function that was called, also where C has another one."""
    for call, code in ((lambda: kl.geod_to_utm(95.0, 0.0), kl.codes.geod_to_utm.COMPUTATION_ERR), (lambda: kl.geoid(0.0, 400.0), kl.codes.geoid.LONGITUDE_ERR),
                       (lambda: kl.eclipse(1e9, R[0]), kl.codes.eclipse.DATE_ERR)):
        with pytest.raises(kl.KitError) as caught:
            call()
        assert caught.value.codes == (code,) and code.name in str(caught.value)
    assert {"sun", "geod_to_utm", "geoid"} <= set(dir(kl.codes)) and not hasattr(kl.codes, "sunshine")


def test_refused_elements():
    """One bad row of many: raised with everything that was computed, or given as NaN."""
    times = T.copy()
    times[[3, 30]] = 40000.0, np.nan
    good = ~np.isin(np.arange(40), (3, 30))
    with pytest.raises(kl.KitError) as caught:
        kl.sun(times)
    assert caught.value.status.tolist() == [0 if g else -1 for g in good]
    for result in (caught.value.outputs, kl.sun(times, errors="nan")):
        assert np.isnan(result.pos[~good]).all() and np.array_equal(result.pos[good], kl.sun(T[good]).pos)
    with pytest.raises(kl.KitError):  # statuses that are asked for do not hide an error
        kl.sun(times, return_status=True)
    result, status = kl.sun(times, errors="nan", return_status=True)
    assert np.array_equal(status == -1, ~good)
    assert kl.sun(9668.0, return_status=True)[1] == 0
    text = kl.time_processing_to_ascii(times, fmt_out=41, errors="nan")
    assert text[3] == "" and text[4] == "2026-06-21T09:21:36"
    cuc = kl.time_processing_to_cuc(np.array([-1e5, 9668.0]), config=CUC, ref="TAI", errors="nan")
    assert not cuc[0].any() and cuc[1].any()


def test_warnings_are_warnings():
    rows = [[9600.0, 37, 0.0], [9700.0, 37, 0.1]]
    with pytest.warns(kl.KitWarning) as caught:
        kl.time_processing_to_processing(9800.0, ref_in="UTC", ref_out="UT1", time=kl.TimeId.from_rows(rows))
    codes = kl.codes.time_processing_to_processing
    assert caught[0].message.codes == (codes.OUT_OF_RANGE_WARN, codes.VALIDITY_WARN)
    assert caught[0].filename == __file__
    with warnings.catch_warnings():
        warnings.simplefilter("error", kl.KitWarning)
        with pytest.raises(kl.KitWarning):
            kl.time_processing_to_processing(T + 200, ref_in="UTC", ref_out="UT1", time=kl.TimeId.from_rows(rows))


def test_clocks_there_and_back():
    clocks = [kl.ObtParamTarvos(21, 9668.0, 5, 7, 10**9), kl.ObtParamVardo(51, 10), kl.ObtParamBrisa(71, 3, 1, 2, 2400, 30, 7)]
    for parameters in clocks:
        coarse, fine = kl.time_time_to_obt(T, parameters=parameters, ref="TAI")
        back = kl.time_obt_to_time(coarse, fine, parameters=parameters, ref="TAI")
        assert np.abs(back - T).max() < 2e-10  # a count of 2^-16 s is 1.8e-10 days
    kelda = kl.ObtParamKelda(61, 835315200, 0, 100, 0, 1.0, 0.0)
    seconds = kl.time_time_to_obt(T, parameters=kelda)
    assert np.abs(kl.time_obt_to_time(seconds, parameters=kelda) - T).max() < 1e-11
    with pytest.raises(kl.KitError) as caught:
        kl.time_time_to_obt([T[0], 1e9], parameters=kelda)
    assert caught.value.status.tolist() == [0, -1]


def test_grid_is_points():
    lat, lon = np.linspace(-90, 90, 5), np.linspace(0, 360, 4)
    assert np.array_equal(kl.geoid_grid(lat, lon, max_degree=20), kl.geoid(lat[:, None], lon, max_degree=20))
    with pytest.raises(kl.KitError):
        kl.geoid_grid(lat, [400.0])
    with pytest.raises(ValueError):
        kl.geoid_grid(lat[:, None], lon)


def test_threads_share_ids():
    """C runs without the interpreter's lock: four threads, the same bits as one."""
    expected, found = kl.sun(T).pos, [None] * 4

    def work(k):
        for _ in range(20):
            found[k] = np.array([kl.sun(float(t)).pos for t in T[:5]] + list(kl.sun(T).pos))
    threads = [threading.Thread(target=work, args=(k,)) for k in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    for one in found:
        assert np.array_equal(one[5:], expected) and np.array_equal(one[:5], expected[:5])


def test_memory_of_results_is_used_again_when_nobody_has_it():
    """What is left of a result, a row or a view, keeps its values through other calls; what is dropped serves the next one."""
    times = 9668.0 + np.arange(1000) / 1000
    kept, expected = [], []
    for k in range(12):
        found = kl.sun(times + k)
        kept += [found.pos[3:7].T, found.vel] if k % 2 else [memoryview(found.pos)]
        expected += [found.pos[3:7].T.copy(), found.vel.copy()] if k % 2 else [found.pos.copy()]
        kept.append(kl.geod_to_cart(kl.cart_to_geod(found.pos).latitude, 1.0, 2.0).pos.reshape(10, 300))
        expected.append(kept[-1].copy())
    assert all(np.array_equal(a, b) for a, b in zip(kept, expected))
    del found, kept
    addresses = {kl.moon(times).pos.__array_interface__["data"][0] for _ in range(200)}
    assert len(addresses) < 100
    _memory.release()
    assert np.array_equal(kl.sun(times).pos, expected[0])


def test_statuses_stay():
    """Statuses that were given out keep their values through other calls, with other statuses, on the same memory."""
    times = 9668.0 + np.arange(1000) / 1000
    kept = []
    for k in range(12):
        mixed = np.where(np.arange(1000) % (k + 2) == 0, 1e9, times)
        if k % 2:
            kept.append((k, kl.sun(mixed, errors="nan", return_status=True)[1]))
        else:
            with pytest.raises(kl.KitError) as caught:
                kl.sun(mixed)
            kept.append((k, caught.value.status))
            del caught
        kl.sun(times)
    for k, status in kept:
        assert np.array_equal(status == -1, np.arange(1000) % (k + 2) == 0)


def test_threads_have_their_own_errors():
    """Refused and good calls of four threads at once on shared memory: each has its code, its statuses and its numbers."""
    times, wrong = 9668.0 + np.arange(500) / 500, []
    expected = kl.sun(times).pos

    def work(k):
        bad = times.copy()
        bad[k] = 1e9
        for _ in range(60):
            try:
                kl.sun(bad if k % 2 else times, ref="UTC" if k != 2 else 9)
                mine = k == 0
            except kl.KitError as error:
                code = kl.codes.sun.TIME_REF_ERR if k == 2 else kl.codes.sun.DATE_ERR
                mine = k != 0 and error.codes == (code,) and (error.status == -1).sum() == (500 if k == 2 else 1)
                mine = mine and (k == 2 or f"element {k}, t 1000000000.0" in str(error))
            if not mine or not np.array_equal(kl.sun(times).pos, expected):
                wrong.append(k)
    threads = [threading.Thread(target=work, args=(k,)) for k in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert wrong == []


def test_records_and_their_columns():
    """The same bits of records, of their columns, with one number for all, and one by one; a column that is left out is zeros."""
    n = 300
    columns = [7.2e6 + np.arange(n), np.full(n, 0.001), np.full(n, 98.0), np.linspace(0, 350, n), np.full(n, 20.0), np.full(n, 30.0)]
    records = np.zeros(n, np.dtype(kl.Kepler))
    for name, column in zip(records.dtype.names, columns):
        records[name] = column
    whole = kl.mean_motion(records, 600.0)
    for given in (columns, tuple(columns), [columns[0], 0.001, 98.0, columns[3], np.array([20.0]), 30], [c[::-1][::-1] for c in columns]):
        assert all(np.array_equal(a, b) for a, b in zip(whole, kl.mean_motion(given, 600.0)))
    one = kl.mean_motion(tuple(float(c[7]) for c in columns), 600.0)
    assert tuple(one) == tuple(c[7] for c in whole) == tuple(kl.mean_motion(kl.Kepler(*[c[7] for c in columns]), 600.0))
    orbit = kl.kepl_to_cart(*columns)
    assert np.array_equal(orbit.pos, kl.kepl_to_cart(columns[0], 0.001, 98.0, columns[3], 20.0, 30.0).pos)
    place = [np.linspace(-80, 80, n), np.linspace(0, 350, n), np.full(n, 500.0)]
    assert np.array_equal(kl.geod_to_cart(*place, None, np.full(n, 1e-3)).vel, kl.geod_to_cart(*place, np.zeros(n), 1e-3, 0.0).vel)
    with pytest.raises(TypeError, match="eccentricity is missing"):
        kl.kepl_to_cart(columns[0], None, 98.0, 10.0, 20.0, 30.0)


def test_threads_share_memory_of_results():
    half = np.linspace(0.1, 0.7, 1000)[:, None]
    quaternions = np.concatenate([np.sin(half) * [1.0, 0.0, 0.0], np.cos(half)], axis=1)
    wrong = []

    def work(k):
        for i in range(200):
            mine = np.roll(quaternions, k * 200 + i, axis=0)
            x = kl.vectors_to_quaternions(*kl.quaternions_to_vectors(mine))
            if not np.allclose(x, mine, atol=1e-14):
                wrong.append(k)
    threads = [threading.Thread(target=work, args=(k,)) for k in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert wrong == []


def test_states_between_states():
    """Kepler's motion, states five minutes apart; the ends, and what is no table."""
    seconds = np.arange(0.0, 7200.0, 300.0)
    a, rate = 7.2e6, np.sqrt(3.986004418e14 / 7.2e6**3)  # a circle

    def circle(s):
        x = rate * np.asarray(s)[..., None]
        return a * np.concatenate([np.cos(x), np.sin(x), 0 * x], axis=-1), a * rate * np.concatenate([-np.sin(x), np.cos(x), 0 * x], axis=-1)
    pos, vel = circle(seconds)
    asked = np.linspace(1200.0, 5400.0, 60).reshape(6, 10)
    found = kl.interpolate_states(asked, times=seconds, pos=pos, vel=vel)
    off = np.linalg.norm(found.pos - circle(asked)[0], axis=-1)
    assert found.pos.shape == (6, 10, 3) and off.max() < 1e-6 and np.abs(found.vel - circle(asked)[1]).max() < 1e-8
    assert np.all(off <= found.error + 1e-8)
    one = kl.interpolate_states(5100, times=seconds, pos=pos, vel=vel)
    assert one.pos.shape == (3,) and isinstance(one.error, float) and np.abs(one.pos - pos[17]).max() < 1e-8
    result, status = kl.interpolate_states([-1.0, 10.0], times=seconds, pos=pos, vel=vel, errors="nan", return_status=True)
    assert status.tolist() == [-1, 0] and np.isnan(result.pos[0]).all() and np.isnan(result.error[0]) and np.isfinite(result.pos[1]).all()
    for wrong in ({"times": seconds[::-1]}, {"pos": pos * np.nan}, {"times": seconds[:1], "pos": pos[:1], "vel": vel[:1]}):
        with pytest.raises(kl.KitError):
            kl.interpolate_states(seconds[-1] if "times" not in wrong else 0.0, **{"times": seconds, "pos": pos, "vel": vel, **wrong})
    for wrong in ({"vel": vel[1:]}, {"pos": pos[:, :2]}, {"times": 5.0}):
        with pytest.raises(ValueError):
            kl.interpolate_states(0.0, **{"times": seconds, "pos": pos, "vel": vel, **wrong})


def test_rows_of_a_correlation():
    time_id = kl.TimeId.from_rows([[9600.0, 36, 0.25], [9610.0, 37, -0.25]])
    rows = kl.time_get_row([[9599.0, 9601.0], [9605.0, 9611.0]], time=time_id)
    assert rows.shape == (2, 2) and rows["row"].tolist() == [[-1, 0], [0, 2]] and rows["tai_utc"].tolist() == [[36, 36], [36, 37]]
    assert kl.time_get_row(9601.0, time=time_id)["tai_utc"] == 36
    with pytest.raises(kl.KitError) as caught:
        kl.time_get_row([9601.0, np.nan], time=time_id)
    assert "t nan: " in str(caught.value) and caught.value.status.tolist() == [0, -1]


@pytest.mark.skipif(not has("star_radec"), reason="the library has no stars")
def test_star_catalogue():
    stars, places = kl.star_catalog(9668.0, cone=(88.8, 7.4, 1.0), magnitudes=(-2.0, 2.0))
    assert stars["number"].tolist() == [2061] and stars["magnitude"][0] == 0.5  # Betelgeuse
    assert kl.star_radec(9668.0, stars[0])[:2] == (places["ra"][0], places["dec"][0])
    assert [len(x) for x in kl.star_catalog(9668.0, cone=(88.8, 7.4, 1.0), magnitudes=(-9.0, -8.0))] == [0, 0]
    for wrong in ({"box": (0.0, 1.0, 5.0, 4.0)}, {"file": "/no such file"}, {"corrections": 9}):
        with pytest.raises(kl.KitError):
            kl.star_catalog(9668.0, **wrong)


@pytest.mark.skipif(not has("cart_to_geod"), reason="the library has no coordinates")
def test_coordinates_take_what_they_give():
    """Records by their fields, rates when they are given; numbers of WGS84 from outside."""
    place = kl.geod_to_cart(48.0, 11.0, [600.0, 700.0])
    assert np.abs(place.pos[0] - [4197554.92703465, 815922.02433955, 4717322.21701069]).max() < 1e-8 and not place.vel.any()
    back = kl.cart_to_geod(place.pos)
    assert np.abs(back.height - [600.0, 700.0]).max() < 1e-8 and np.abs(back.latitude - 48.0).max() < 1e-13
    moving = kl.geod_to_cart(*kl.cart_to_geod(place.pos, np.array([10.0, 20.0, 30.0])))
    assert np.abs(moving.vel - [10.0, 20.0, 30.0]).max() < 1e-9
    seen = kl.ef_to_topocentric(np.array([5.2e6, 1.5e6, 4.9e6]), np.array([-4000.0, 3000.0, 3200.0]), origin=(48.0, 11.0, 600.0))
    assert np.abs(np.array(seen) - [145.77729631874467, 45.91296339272434, 1227285.612029283, -0.3806041201677284, 0.06289273856673849, -1118.7106292593724]).max() < 1e-7
    utm = kl.geod_to_utm([33.3, -33.3], 44.4)
    assert utm.zone.tolist() == [38, 38] and utm.north.tolist() == [1, 0] and abs(utm.easting[0] - 444140.5449) < 1e-3
    line = kl.geod_distance(40.6, -73.8, 51.6, -0.5)
    assert abs(line.distance - 5551759.400318678) < 2e-8 and isinstance(line.distance, float)
