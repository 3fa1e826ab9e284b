"""Ids as objects: open and closed, copied, pickled, in other processes."""
import copy
import ctypes
import multiprocessing
import os
import pickle
import threading
import time

import numpy as np
import pytest

import kitlib as kl
from kitlib._library import KITLIB

ROWS = np.array([[9600.0, 37, 0.01], [9650.0, 37, 0.02], [9700.0, 37, 0.03]])
VALUES = dict(tai=9497 + 37 / 86400, utc=9497.0, ut1=9497.0 + 1e-7, gps=9497 + 18 / 86400)
POLE = np.array([[0.1, 0.3, 1e-4, 2e-4]] * 3)
MAKERS = {
    "bundled": kl.TimeId.bundled,
    "values": lambda: kl.TimeId.from_values(**VALUES),
    "rows": lambda: kl.TimeId.from_rows(ROWS),
    "rows and pole": lambda: kl.TimeId.from_rows(ROWS, POLE),
}
SATELLITE = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "satellite.cfg")


def ut1(time_id):
    return kl.time_processing_to_processing(np.linspace(9601, 9699, 50), ref_in="UTC", ref_out="UT1", time=time_id)


def station(time_id):
    return kl.change_cart_cs(9655.0, np.array([6.4e6, 0.0, 0.0]), cs_in="TOD", cs_out="EF", time=time_id).pos


def in_another_process(time_id, sat, queue):
    queue.put((ut1(time_id), station(time_id), repr(time_id), sat.number))


@pytest.mark.parametrize("name", MAKERS)
def test_pickle_carries_everything(name):
    time_id = MAKERS[name]()
    again = pickle.loads(pickle.dumps(time_id))
    assert np.array_equal(ut1(again), ut1(time_id)) and np.array_equal(station(again), station(time_id))
    assert repr(again) == repr(time_id)
    assert pickle.loads(pickle.dumps(time_id)) is again  # once a process
    assert copy.copy(time_id) is time_id and copy.deepcopy([time_id])[0] is time_id


@pytest.mark.parametrize("way", ["spawn", "fork"])
def test_other_processes(way):
    context = multiprocessing.get_context(way)
    time_id = kl.TimeId.from_rows(ROWS, POLE)
    queue = context.Queue()
    process = context.Process(target=in_another_process, args=(time_id, kl.SatId(21), queue))
    process.start()
    found = queue.get(timeout=200)
    process.join(200)
    assert process.exitcode == 0
    assert np.array_equal(found[0], ut1(time_id)) and np.array_equal(found[1], station(time_id))
    assert found[2:] == (repr(time_id), 21)


def test_closed():
    with kl.TimeId.from_values(**VALUES) as time_id:
        assert not time_id.closed
    time_id.close()
    assert time_id.closed and repr(time_id) == "<TimeId: closed>"
    model = kl.ModelId()
    model.close()
    for call in (lambda: kl.sun(9650.0, time=time_id), lambda: kl.sun(ROWS[:, 0], time=time_id), lambda: pickle.dumps(time_id),
                 lambda: time_id.pole(9650.0), lambda: kl.sun(9650.0, model=model), lambda: pickle.dumps(model),
                 lambda: kl.RunId(kl.SatId(21), time_id)):
        with pytest.raises(ValueError, match="closed"):
            call()


def test_closed_while_others_compute():
    """A thread is in a long call when its id is closed and others take the memory: its numbers are those of the id."""
    rows = np.stack([9600.0 + np.arange(20000) / 200, np.full(20000, 37.0), 0.1 * np.sin(np.arange(20000) / 2000)], axis=1)
    t = np.random.default_rng(1).uniform(9601, 9699, 1_000_000)
    with kl.TimeId.from_rows(rows) as time_id:
        expected = kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1", time=time_id)
    for _ in range(3):
        time_id, started, found = kl.TimeId.from_rows(rows), threading.Event(), []

        def work():
            started.set()
            found.append(kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1", time=time_id))
        thread = threading.Thread(target=work)
        thread.start()
        started.wait()
        time.sleep(0.005)
        time_id.close()
        others = [kl.TimeId.from_rows(rows * [1, 1, -1]) for _ in range(20)]
        with pytest.raises(ValueError, match="closed"):
            kl.sun(9650.0, time=time_id)
        thread.join()
        assert np.array_equal(found[0], expected)
        del others


def test_closing_waits_for_the_last_call():
    """What a call holds keeps the id of C; the close of C comes when it lets go."""
    for made in (lambda: kl.TimeId.from_rows(ROWS), kl.ModelId):
        one = made()
        held = one.pointer  # as the arguments of a call
        initialised = getattr(KITLIB, "kl_time_init_status" if isinstance(one, kl.TimeId) else "kl_model_init_status")
        one.close()
        assert one.closed and initialised(held) == 1
        handle = held._obj
        del held
        handle.__del__()
        assert initialised(ctypes.byref(handle)) == 0


def test_threads_close_and_compute():
    """Four threads use an id as long as there is one, a fifth closes it: numbers or ValueError, and nothing else."""
    expected, wrong = ut1(kl.TimeId.from_rows(ROWS)), []

    def work(ids):
        while True:
            try:
                if not np.array_equal(ut1(ids[0]), expected):
                    wrong.append(ids[0])
            except ValueError:
                return
    for _ in range(8):
        ids = [kl.TimeId.from_rows(ROWS)]
        threads = [threading.Thread(target=work, args=(ids,)) for _ in range(4)]
        for thread in threads:
            thread.start()
        time.sleep(0.002)
        ids[0].close()
        for thread in threads:
            thread.join()
    assert wrong == []


def test_nobody_closes_the_common_correlation():
    with kl.RunId(kl.SatId(21)) as run:
        run.time.close()
    assert kl.sun(9650.0).pos.any() and not run.time.closed


def test_run_of_what_are_no_ids():
    for wrong in (lambda: kl.RunId(21), lambda: kl.RunId(kl.SatId(21), kl.ModelId()), lambda: kl.RunId(kl.SatId(21), None, 5)):
        with pytest.raises(TypeError):
            wrong()


def test_run_holds_its_ids():
    time_id, model = kl.TimeId.from_rows(ROWS), kl.ModelId(sun=1)
    run = kl.RunId(kl.SatId(21), time_id, model)
    with pytest.raises(kl.KitError):
        time_id.close()
    assert np.array_equal(kl.sun(9650.0, time=run, model=run).pos, kl.sun(9650.0, time=time_id).pos)
    again = pickle.loads(pickle.dumps(run))
    assert again.number != run.number and np.array_equal(ut1(again), ut1(time_id))
    again.close()
    run.close()
    time_id.close()
    with pytest.raises(ValueError, match="closed"):
        kl.sun(9650.0, time=run)


def test_satellite_from_file_travels(tmp_path):
    path = tmp_path / "satellite.cfg"
    path.write_bytes(open(SATELLITE, "rb").read())
    with kl.SatId(file=path) as sat:
        path.unlink()  # its text travels, not its name
        again = pickle.loads(pickle.dumps(sat))
        assert again.number != sat.number and "from a file" in repr(again)
        again.close()
    with pytest.raises(ValueError, match="closed"):
        kl.RunId(sat)
    bad = tmp_path / "bad.cfg"
    bad.write_text("nonsense\n")
    for _ in range(12):  # a refused file keeps no slot
        with pytest.raises(kl.KitError):
            kl.SatId(file=bad)
    with kl.SatId(file=SATELLITE):
        pass


def test_pickle_of_another_version():
    for thing in (kl.TimeId.from_values(**VALUES), kl.ModelId(), kl.SatId(21)):
        again, (state,) = thing.__reduce__()
        for wrong in ({**state, "format": 99}, {k: v for k, v in state.items() if k != "format"}, None):
            with pytest.raises(ValueError, match="format"):
                again(wrong)


def test_codes_and_warnings_travel():
    with pytest.raises(kl.KitError) as caught:
        kl.sun([9650.0, 1e9])
    again = pickle.loads(pickle.dumps(caught.value))
    assert again.codes == (kl.codes.sun.DATE_ERR,) and again.codes[0] is kl.codes.sun.DATE_ERR
    assert again.status.tolist() == [0, -1] and np.array_equal(again.outputs.pos[0], caught.value.outputs.pos[0]) and str(again) == str(caught.value)
    warning = pickle.loads(pickle.dumps(kl.KitWarning("words", "kl_sun", (kl.codes.sun.DATE_ERR,))))
    assert (str(warning), warning.function, warning.codes) == ("words", "kl_sun", (kl.codes.sun.DATE_ERR,))
    make, (public_id, _) = kl.codes.sun.DATE_ERR.__reduce_ex__(4)
    assert make(public_id, 31) == 31 and make(999, 2) == 2  # of a version that knows more


def test_window_of_rows():
    """One end alone leaves the other open."""
    whole = kl.TimeId.bundled().data()["rows"]["utc"]
    for ends in ({"start": 9000.0}, {"stop": 9000.0}, {"start": 8000.0, "stop": 9000.0}):
        utc = kl.TimeId.from_files([], **ends).data()["rows"]["utc"]
        assert utc[0] <= ends.get("start", whole[0]) and utc[-1] >= ends.get("stop", whole[-1]) and len(utc) < len(whole)


BAD_ROWS = [("empty", np.zeros((0, 3))), ("two columns", ROWS[:, :2]), ("decreasing", ROWS[::-1]), ("NaN", ROWS * np.nan),
            ("no whole seconds", ROWS + [0, 0.5, 0]), ("out of range", ROWS + [1e6, 0, 0])]


@pytest.mark.parametrize("name,rows", BAD_ROWS, ids=[b[0] for b in BAD_ROWS])
def test_bad_rows(name, rows):
    with pytest.raises(ValueError):
        kl.TimeId.from_rows(rows)


def test_bad_ways_to_make_ids(tmp_path):
    for wrong in (kl.TimeId, lambda: kl.ModelId(sun=1.5), lambda: kl.SatId(21.5), lambda: kl.SatId("21"), lambda: kl.TimeId.from_rows(np.ma.masked_array(ROWS))):
        with pytest.raises(TypeError):
            wrong()
    with pytest.raises(ValueError, match="TimeModel"):
        kl.TimeId.from_files([], model="no such model")
    with pytest.raises(FileNotFoundError):
        kl.TimeId.from_files(["no such file"])
    odd = tmp_path / "odd.txt"
    odd.write_text("KL_TIME_CORRELATION 1\n2026-01-01T00:00:00 37 x\n")
    with pytest.raises(kl.KitError) as caught:
        kl.TimeId.from_files([odd])
    assert caught.value.codes == (kl.codes.time_id_init.RECORD_ERR,) and "odd.txt:2:" in caught.value.messages[-1]
    with pytest.raises(kl.KitError):
        kl.TimeId.from_values(1e9, 0, 0, 0)
    with pytest.raises(TypeError):
        kl.ModelId(star_sign=1)
    with pytest.raises(kl.KitError):
        kl.ModelId(moon=3)


def test_from_files(tmp_path):
    """The own format of a bulletin, with the pole: read back as it was written."""
    path = tmp_path / "bulletin.txt"
    path.write_text("KL_TIME_CORRELATION 1\n2026-01-01T00:00:00 37 0.0712345 0.1023 0.3511\n2026-01-02T00:00:00 37 0.0710345 0.1033 0.3501\n")
    for time_id in (kl.TimeId.from_files([path]), kl.TimeId.from_files(path, model="TABLE")):
        day = kl.mjd2000("2026-01-01T12:00:00")
        assert abs((kl.time_processing_to_processing(day, ref_in="UTC", ref_out="UT1", time=time_id) - day) * 86400 - 0.0711345) < 1e-6
        assert np.abs(time_id.pole([day])[0, :2] - [0.1028, 0.3506]).max() < 1e-9
        assert time_id.report.n_rows == 2
