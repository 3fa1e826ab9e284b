"""Functions over dask arrays: the same bits as numpy, on one thread and on processes, also when one of them dies."""
import os
import signal

import numpy as np
import pytest

import kitlib as kl

da = pytest.importorskip("dask.array")
N = 40000
T = 9650.0 + np.arange(N) / N
R = np.array([7.0e6, 1.0e6, 0.0]) + np.arange(3 * N).reshape(N, 3)
V = np.array([170.0, -1096.0, 7379.0]) + 1e-3 * np.arange(3 * N).reshape(N, 3)


def rows():
    return kl.TimeId.from_rows([[9600.0, 37, 0.05], [9700.0, 37, 0.06]])


def lazy():
    return [da.from_array(x, chunks=(2000,) + (2,) * (x.ndim - 1)) for x in (T, R, V)]


def same(found, expected):
    for a, b in zip(found, expected):
        assert np.array_equal(a, b) and a.dtype == b.dtype


def test_same_bits():
    import dask
    from kitlib.dask import apply
    time_id = rows()
    states = apply(kl.change_cart_cs, *lazy(), cs_in="TEME", cs_out="EF", time=time_id)
    assert isinstance(states, kl.StateResult) and states.pos.shape == (N, 3)
    same(dask.compute(*states), kl.change_cart_cs(T, R, V, cs_in="TEME", cs_out="EF", time=time_id))
    same([apply(kl.time_processing_to_processing, lazy()[0], ref_out="GPS").compute()], [kl.time_processing_to_processing(T, ref_out="GPS")])
    same([apply(kl.time_processing_to_ascii, lazy()[0], fmt_out=13).compute()], [kl.time_processing_to_ascii(T, fmt_out=13)])
    same([apply(kl.time_processing_to_transport, lazy()[0], fmt_out=0).compute()], [kl.time_processing_to_transport(T, fmt_out=0)])


def test_errors_travel():
    from kitlib.dask import apply
    bad = da.from_array(np.where(np.arange(N) == 7, 1e9, T), chunks=2000)
    with pytest.raises(kl.KitError) as caught:
        apply(kl.sun, bad).pos.compute(scheduler="processes", num_workers=2)
    assert [code.name for code in caught.value.codes] == ["DATE_ERR"]
    assert np.isnan(apply(kl.sun, bad, errors="nan").pos[7].compute()).all()
    with pytest.raises(ValueError):
        apply(kl.change_cart_cs, lazy()[0], lazy()[1][:-1], cs_in="TEME", cs_out="EF")
    with pytest.raises(ValueError):
        apply(kl.sun, T)


@pytest.mark.skipif("KITLIB_LONG_TESTS" not in os.environ, reason="check.sh asks for it: KITLIB_LONG_TESTS")
def test_a_worker_dies():
    distributed = pytest.importorskip("distributed")
    from kitlib.dask import apply
    time_id = rows()
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None) as cluster, distributed.Client(cluster) as client:
        states = apply(kl.change_cart_cs, *lazy(), cs_in="TEME", cs_out="EF", time=time_id)
        victim = next(iter(client.run(os.getpid).values()))  # a process of the cluster that was started here
        future = client.compute([*states])
        distributed.wait(future[:1], timeout=120, return_when="FIRST_COMPLETED")
        os.kill(victim, signal.SIGKILL)
        same(client.gather(future), kl.change_cart_cs(T, R, V, cs_in="TEME", cs_out="EF", time=time_id))
