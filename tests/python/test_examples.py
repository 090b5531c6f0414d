"""The examples of work beyond one process, run small, against direct calls."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

import numpy as np
import pytest

import co2_properties as co2

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples" / "python"
PRES, ENTH = np.linspace(7500.0, 30000.0, 30), np.linspace(300.0, 900.0, 30)
DENS = co2.ph(PRES[:, None], ENTH, outputs=["dens"]).dens


# A study whose blocks take long from the fifth on.
SLOW = """
import time
import parameter_study as study

def slow(axes, block, results, evaluate=study.evaluate):
    time.sleep(0.5 if block > 3 else 0.0)
    evaluate(axes, block, results)

study.CHECKPOINT, study.evaluate = 0.0, slow
study.main()
"""


def example(*arguments, before=(), **options):
    return subprocess.Popen([*before, sys.executable, *map(str, arguments)], cwd=EXAMPLES,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


def printed(process):
    text, _ = process.communicate(timeout=300)
    assert process.returncode == 0, text
    return text


# Ctrl-C reaches all processes of a terminal; a kill none but the first, which cannot say anything.
@pytest.mark.parametrize("how", [lambda group: os.killpg(group, signal.SIGINT),
                                 lambda first: os.kill(first, signal.SIGKILL)])
def test_interrupted_study_goes_on(tmp_path, how):
    pytest.importorskip("tqdm")
    path, count = tmp_path / "study.npy", 16
    arguments = (path, "--states", count**4, "--processes", 2)

    def done():
        try:
            return np.load(tmp_path / "study.marks.npy").sum()
        except FileNotFoundError:
            return 0

    study = example("-c", SLOW, *arguments, start_new_session=True)
    while done() == 0 and study.poll() is None:
        time.sleep(1e-2)
    how(study.pid)
    study.communicate()
    assert study.returncode != 0
    before = done()
    assert 0 < before < count
    # What was begun and not marked counts for nothing, what is marked is not done again.
    marks = np.load(tmp_path / "study.marks.npy")
    results = np.load(path, mmap_mode="r+")
    results["work"][~marks] = -1.0
    marked = np.argmax(marks), 0, 0, 0
    results["work"][marked] = -2.0
    results.flush()
    left = f"{(count - before) * count**3:.3g} states"
    assert left in printed(example("parameter_study.py", *arguments))

    axes = np.load(tmp_path / "study.axes.npz")
    temp, pres, ratio, efficiency = np.meshgrid(*(axes[name] for name in axes), indexing="ij",
                                                sparse=True)
    inlet = co2.tp(temp, pres)
    work = (co2.ps(pres * ratio, inlet.entr).enth - inlet.enth) / efficiency
    outlet = co2.ph(pres * ratio, inlet.enth + work, outputs=["temp", "dens"])
    work[marked] = -2.0
    for name, expected in (("work", work), ("temp", outlet.temp), ("dens", outlet.dens)):
        assert np.array_equal(results[name], expected)
    other = example("parameter_study.py", path, "--states", 16)
    assert "another study" in other.communicate()[0] and other.returncode != 0


def test_dask_and_xarray(monkeypatch):
    pytest.importorskip("dask.array")
    pytest.importorskip("xarray")
    monkeypatch.syspath_prepend(EXAMPLES)
    import dask_blocks

    assert np.array_equal(dask_blocks.with_dask(PRES, ENTH, 7)[0].compute(), DENS)
    labelled = dask_blocks.with_xarray(PRES, ENTH, 7)
    assert labelled.chunks is not None and labelled.dims == ("pres", "enth")
    assert np.array_equal(labelled, DENS) and np.array_equal(labelled.pres, PRES)
    mean = f"{DENS.mean():.3f}"
    assert mean in printed(example("dask_blocks.py", "--states", 900, "--scheduler", "processes",
                                   env=os.environ | {"DASK_NUM_WORKERS": "2"}))


@pytest.mark.parametrize("ranks", [1, 4])
def test_mpi(tmp_path, ranks):
    pytest.importorskip("mpi4py")
    if not shutil.which("mpiexec"):
        pytest.skip("no mpiexec")
    allowed = {f"OMPI_{name}": "1" for name in ("MCA_rmaps_base_oversubscribe", "ALLOW_RUN_AS_ROOT",
                                                "ALLOW_RUN_AS_ROOT_CONFIRM")}
    path = tmp_path / "dens.npy"
    text = printed(example("mpi_blocks.py", path, "--states", 900, before=("mpiexec", "-n", str(ranks)),
                           env=os.environ | allowed))
    assert f"{ranks} processes" in text
    assert np.array_equal(np.load(path), DENS)
