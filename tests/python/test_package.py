"""The package against the C entries of the library that it holds, and what arrays may be."""

import ctypes
import gc
import math
import pickle
import re
import sys
import threading
import warnings

import numpy as np
import pytest

import co2_properties as co2
from co2_properties import _core

PAIRS = {"td": "temp dens", "tp": "temp pres", "ph": "pres enth", "ps": "pres entr",
         "du": "dens inte", "dh": "dens enth", "ds": "dens entr", "dp": "dens pres",
         "hs": "enth entr", "pu": "pres inte", "ts": "temp entr", "tx": "temp qual",
         "px": "pres qual"}
# Vapour, liquid, supercritical, near the critical point, two phases twice, and beyond the range.
TEMP = np.array([250.0, 280.0, 700.0, 305.0, 270.0, 300.0, 239.0])
DENS = np.array([20.0, 950.0, 300.0, 460.0, 500.0, 600.0, 20.0])
NONE = "cv cp ssnd visc cond dpdd dpdt dhdd dhdt dsdd dsdt".split()
LIBRARY = ctypes.CDLL(_core.__file__)


def by_c(entry, first, second):
    """All outputs and the code of one state, by the entry of the library."""
    values = [ctypes.c_double(-1.0) for _ in co2.OUTPUTS]
    ierr = ctypes.c_int32()
    getattr(LIBRARY, f"co2_{entry}")(ctypes.byref(ctypes.c_double(first)),
                                     ctypes.byref(ctypes.c_double(second)), ctypes.byref(ierr),
                                     *map(ctypes.byref, values))
    return dict(zip(co2.OUTPUTS, (v.value for v in values))), ierr.value


def same(one, other):
    """The same bits; every NaN is like any other."""
    return np.array_equal(one, other, equal_nan=True)


def td_one_by_one(temp, dens, name):
    """What an array has to hold: the states of its elements."""
    temp, dens = np.broadcast_arrays(np.asarray(temp, float), np.asarray(dens, float))
    values = [getattr(co2.td(t, d, errors="nan"), name)
              for t, d in zip(temp.ravel().tolist(), dens.ravel().tolist())]
    return np.array(values).reshape(temp.shape)


@pytest.mark.parametrize("entry", PAIRS)
def test_bits_are_those_of_the_c_entry(entry):
    given = co2.td(TEMP, DENS, errors="nan")
    first, second = (np.nan_to_num(given[name], nan=-1.0) for name in PAIRS[entry].split())
    function = getattr(co2, entry)
    arrays = function(first, second, errors="nan")
    unchanged = function(first, second, errors="ierr")
    for i, inputs in enumerate(zip(first.tolist(), second.tolist())):
        expected, code = by_c(entry, *inputs)
        number = function(*inputs, errors="nan")
        assert arrays.ierr[i] == unchanged.ierr[i] == number.ierr == code
        for name in co2.OUTPUTS:
            assert unchanged[name][i] == expected[name]
            none = code > 0 or (name in NONE and expected[name] == 0.0)
            assert same(arrays[name][i], math.nan if none else expected[name]), name
            assert same(number[name], arrays[name][i]), name


PADDED = np.zeros(7, np.dtype([("flag", "i4"), ("temp", "f8"), ("dens", "f8")]))  # 20 bytes
PADDED["temp"], PADDED["dens"] = TEMP, DENS
GRID_T, GRID_D = np.meshgrid(TEMP, DENS, indexing="ij")
MANY = np.linspace(250.0, 900.0, 3 * 5 * 700).reshape(3, 5, 700)
LAYOUTS = {
    "contiguous": (TEMP, DENS),
    "backwards": (TEMP[::-1], DENS[::-1]),
    "every second": (np.repeat(TEMP, 2)[::2], DENS),
    "column and row": (TEMP[:, None], DENS[None, :]),
    "one value for all": (TEMP, 300.0),
    "Fortran order": (np.asfortranarray(GRID_T), np.asfortranarray(GRID_D)),
    "mixed orders": (np.asfortranarray(GRID_T), GRID_D[::-1]),
    "not at multiples of 8 bytes": (PADDED["temp"], PADDED["dens"]),
    "axes in another order, in several blocks": (MANY.transpose(2, 0, 1), MANY.transpose(2, 0, 1)),
    "a part, in several blocks": (MANY[:, ::-2, 1:-1], 400.0),
    "axes of length one": (TEMP.reshape(1, 7, 1), DENS.reshape(7, 1)[::-1].T[:, :, None]),
    "single precision": (TEMP.astype("f4"), DENS),
    "integers": (TEMP.astype(int), [300] * 7),
    "other byte order": (TEMP.astype(">f8"), DENS.astype(">f8")),
    "lists": (TEMP.tolist(), DENS.tolist()),
    "objects": (TEMP.astype(object), DENS),
    "an array of no axes": (np.array(310.0), np.array(600)),
    "empty": (np.empty((0, 3)), np.empty(3)),
}


@pytest.mark.parametrize("layout", LAYOUTS)
def test_arrays_of_any_layout(layout):
    temp, dens = LAYOUTS[layout]
    for threads in (1, 3):
        state = co2.td(temp, dens, outputs=["cp", "enth"], errors="nan", threads=threads)
        assert np.shape(state.enth) == np.shape(state.ierr) == np.broadcast(temp, dens).shape
        assert same(state.enth, td_one_by_one(temp, dens, "enth"))
        assert same(state.cp, td_one_by_one(temp, dens, "cp"))
    # The same into arrays that exist, with gaps.
    gaps = np.full(tuple(2 * n for n in np.broadcast(temp, dens).shape), -1.0)
    out = {"cp": gaps[(slice(1, None, 2),) * gaps.ndim]}
    if gaps.ndim > 0:
        co2.td(temp, dens, out=out, errors="nan")
        assert same(out["cp"], state.cp)
        assert np.count_nonzero(gaps == -1.0) == gaps.size - out["cp"].size


def test_results_lie_in_memory_as_inputs_do():
    assert co2.td(*LAYOUTS["Fortran order"], errors="nan").enth.flags.f_contiguous


@pytest.mark.parametrize("value, error", [
    (np.array([1j]), TypeError), ("310", TypeError), (np.array(["310"]), TypeError),
    (None, TypeError), (True, TypeError), (np.array([True]), TypeError), (np.ones(4), ValueError),
    (np.ma.array([True]), TypeError), (np.ma.array([1j]), TypeError)])
def test_inputs_that_are_no_numbers(value, error):
    with pytest.raises(error):
        co2.td(value, DENS)


def test_masked_elements_are_not_numbers():
    temp = np.ma.array(TEMP, mask=[True] + [False] * 6)
    assert np.isnan(co2.tp(temp, 8000.0, errors="nan").enth[0])


def test_out():
    temp, dens = TEMP.copy(), DENS.copy()
    expected = co2.td(temp, dens, outputs=["enth"], errors="nan")
    enth, ierr = np.empty(7), np.empty(7, np.int32)
    state = co2.td(temp, dens, out={"enth": enth, "ierr": ierr}, errors="nan")
    assert list(state) == ["enth"] and state.enth is enth and state.ierr is ierr
    assert same(enth, expected.enth) and same(ierr, expected.ierr)
    with pytest.warns(co2.PropertyWarning, match="index 6: code 101 at dens = 20.0 kg/m3$"):
        co2.td(temp, dens, out={"enth": temp})  # what is overwritten is not told
    temp[:] = TEMP
    # An input's own array, one shifted against it, and the result of an earlier call.
    co2.td(temp, dens, out={"enth": temp}, errors="nan")
    assert same(temp, expected.enth)
    longer = np.append(np.tile(TEMP, 700), 0.0)
    co2.td(longer[:-1], np.tile(dens, 700), out={"enth": longer[1:]}, errors="nan")
    assert same(longer[1:], np.tile(expected.enth, 700))
    place = np.empty(())
    assert co2.td(310.0, 600.0, out={"enth": place}, errors="nan").enth == place != 0.0
    again = co2.td(TEMP[::-1], dens, out=state, errors="nan")
    assert again.enth is enth and not same(enth, expected.enth)


READ_ONLY = np.empty(7)
READ_ONLY.flags.writeable = False
TWICE = np.empty(8)


@pytest.mark.parametrize("out, error", [
    ({"enth": np.empty(7, "f4")}, TypeError),
    ({"enth": np.empty(7, ">f8")}, TypeError),
    ({"enth": [0.0] * 7}, TypeError),
    ({"ierr": np.empty(7, np.int64)}, TypeError),
    (np.empty(7), TypeError),
    ({"enth": np.empty(8)}, ValueError),
    ({"enth": np.empty((1, 7))}, ValueError),
    ({"enth": READ_ONLY}, ValueError),
    ({"enth": TWICE[:7], "entr": TWICE[1:]}, ValueError),
    ({"enth": np.lib.stride_tricks.as_strided(TWICE, (7,), (0,))}, ValueError),
    ({"enthalpy": np.empty(7)}, ValueError),
])
def test_arrays_that_cannot_take_results(out, error):
    with pytest.raises(error):
        co2.td(TEMP, DENS, out=out, errors="nan")


def test_errors_of_a_number():
    with pytest.raises(co2.PropertyError, match="303.*0.5 kPa.*400.0 kJ/kg.*below minimum") as e:
        co2.ph(0.5, 400.0)
    assert (e.value.code, e.value.index, e.value.counts) == (303, (), {303: 1})
    assert pickle.loads(pickle.dumps(e.value)).inputs == {"pres": 0.5, "enth": 400.0}
    with pytest.warns(co2.PropertyWarning, match="303"):
        assert math.isnan(co2.ph(0.5, 400.0, errors="warn").temp)
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        assert math.isnan(co2.ph(0.5, 400.0, errors="nan").temp)
        assert co2.ph(0.5, 400.0, errors="ierr").temp == 0.0
        assert math.isnan(co2.ph(4000.0, 300.0).cp)  # two phases are no error
        assert co2.ph(4000.0, 300.0, errors="ierr").cp == 0.0
    for numbers in ((8000.0, 400.0), (TEMP, 400.0)):
        with pytest.raises(ValueError, match="raise, warn, nan, ierr"):
            co2.ph(*numbers, errors="ignore")


def test_errors_of_arrays():
    pres = np.array([[8000.0, 0.5, 0.5], [2e5, 4000.0, 0.5]])
    text = r"4 of 6 states: 3 with code 303, .*; 1 with code 304, .*index \(0, 1\).*pres = 0.5 kPa"
    with pytest.warns(co2.PropertyWarning, match=text) as warned:
        state = co2.ph(pres, 300.0)
    assert warned[0].filename == __file__
    assert state.ierr.tolist() == [[0, 303, 303], [304, -301, 303]]
    assert np.isnan(state.temp).tolist() == [[False, True, True], [True, False, True]]
    with pytest.raises(co2.PropertyError, match=text) as e:
        co2.ph(pres, 300.0, errors="raise")
    assert e.value.index == (0, 1) and e.value.counts == {303: 3, 304: 1}
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        assert same(co2.ph(pres, 300.0, errors="nan").temp, state.temp)
        assert co2.ph(pres, 300.0, errors="ierr").temp[0, 1] == 0.0


def test_names():
    state = co2.td(310.0, 600.0, outputs=["cp", "temp"], derivatives="dtdp_h")
    assert list(state) == ["cp", "temp", "dtdp_h"] and len(state) == 3
    assert state["cp"] == state.cp and "dens" not in state and dict(state)["temp"] == 310.0
    assert len(co2.td(TEMP, 600.0, derivatives="all", errors="nan")) == 49
    assert len(co2.td(310.0, 600.0, outputs=np.array(["cp", "cp"]))) == 1
    with pytest.raises(AttributeError, match="dens was not asked for"):
        state.dens
    with pytest.raises(KeyError):
        state["dens"]
    with pytest.raises(ValueError, match="no property is called 'density'; did you mean 'dens'"):
        co2.td(310.0, 600.0, outputs=["density"])
    assert pickle.loads(pickle.dumps(state)) == state
    arrays = co2.td(TEMP, 600.0, errors="nan")
    assert same(pickle.loads(pickle.dumps(arrays)).cp, arrays.cp)
    assert "10.1" not in repr(arrays) and "kJ/(kg K)" in repr(arrays)
    assert {*co2.UNITS} >= {*co2.OUTPUTS, *co2.DERIVATIVES} and co2.info().tcrit == 304.1282
    assert re.fullmatch(r"\d+\.\d+\.\d+", co2.__version__)
    assert co2.message(2**32 + 303) == co2.message(99)


def test_derivatives_that_have_no_value():
    names = ["compr_t", "dviscdd_t", "dpdd_t", "dqualdd_t"]
    mixture = co2.td(TEMP[4:6], DENS[4:6], outputs=names)
    assert np.isnan(mixture.compr_t).all() and np.isnan(mixture.dviscdd_t).all()
    assert (mixture.dpdd_t == 0.0).all() and (mixture.dqualdd_t < 0.0).all()  # these are values


def test_saturation():
    temp = np.array([[250.0, 280.0], [300.0, 310.0]])
    with pytest.warns(co2.PropertyWarning, match="sat_t: 1 of 4.*1202"):
        both = co2.sat_t(temp, derivatives=["dtdp_s"])
    assert np.isnan(both.latent_heat[1, 1]) and np.isnan(both.liq.dens[1, 1])
    for i in np.ndindex(2, 2):
        if i == (1, 1):
            continue
        one = co2.sat_t(float(temp[i]), derivatives=["dtdp_s"])
        back = co2.sat_p(one.liq.pres, outputs=["temp"])
        assert math.isclose(back.liq.temp, temp[i], rel_tol=1e-9)
        assert one.latent_heat == both.latent_heat[i] and one.dpdt_sat == both.dpdt_sat[i]
        assert dict(one.vap) == {name: both.vap[name][i] for name in both.vap}
        assert one.liq.enth < one.vap.enth and one.liq.qual == 0.0
    assert pickle.loads(pickle.dumps(one)).vap == one.vap
    dens, heat = np.empty((2, 2)), np.empty((2, 2))
    into = co2.sat_t(temp, outputs=["dens"], out={"vap": {"dens": dens}, "latent_heat": heat},
                     errors="nan")
    assert into.vap.dens is dens and same(dens, both.vap.dens) and same(heat, both.latent_heat)
    again = co2.sat_t(temp, outputs=["dens"], out=into, errors="nan")
    assert again.liq.dens is into.liq.dens
    with pytest.raises(co2.PropertyError, match="1201"):
        co2.sat_t(200.0)
    for out, error in ((dens, TypeError), ({"liq": dens}, TypeError), (both.liq, ValueError),
                       ({"lig": {"dens": dens}}, ValueError)):
        with pytest.raises(error, match="^out "):  # and nothing that nobody fills
            co2.sat_t(temp, out=out, errors="nan")


def test_threads_give_the_same_bits():
    random = np.random.default_rng(2)
    temp, dens = random.uniform(235.0, 900.0, 20000), random.uniform(0.1, 1100.0, 20000)
    one = co2.td(temp, dens, errors="nan")
    for threads in (2, 7, None):
        many = co2.td(temp, dens, errors="nan", threads=threads)
        assert same(many.ierr, one.ierr) and all(same(many[name], one[name]) for name in one)
    with pytest.raises(ValueError):
        co2.td(temp, dens, threads=0)


def test_other_threads_run_meanwhile():
    temp, codes = np.full(1000000, 310.0), np.empty(1000000, np.int32)
    for _ in range(50):  # a busy machine may not let this thread run just then
        codes[:] = -1
        work = threading.Thread(target=lambda: co2.td(temp, 600.0, out={"ierr": codes}))
        work.start()
        half_done = False
        while work.is_alive() and not half_done:
            half_done = codes[0] == 0 and codes[-1] == -1
        work.join()
        if half_done:
            return
    pytest.fail("nobody sees a call that is half done")


def test_results_hold_no_more_references_than_they_need():
    array = np.empty(7)

    def counts():
        for _ in range(100):
            co2.td(TEMP, DENS, out={"enth": array}, errors="nan")
            co2.td(310.0, 600.0)
            co2.sat_t(280.0)
        gc.collect()
        return sys.getrefcount(array), sys.getrefcount(co2.State)

    assert counts() == counts()


def test_series_of_pandas():
    pandas = pytest.importorskip("pandas")
    frame = pandas.DataFrame({"p": [8000.0, 9000.0], "h": [400, 300]}, index=["b", "a"])
    state = co2.ph(frame.p, frame.h)
    assert state.dens.index.equals(frame.index) and state.dens.name == "dens"
    frame["dens"] = state.dens
    assert frame.dens["a"] == co2.ph(9000.0, 300.0).dens
    assert isinstance(co2.ph(frame.p, 300.0).temp, pandas.Series)
    missing = co2.ph(pandas.Series([8000.0, None], dtype="Float64"), 300.0, errors="nan")
    assert np.isnan(missing.temp).tolist() == [False, True]
    assert pandas.DataFrame(dict(state)).shape == (2, 19)
    with pytest.raises(TypeError):
        co2.ph(pandas.Series(pandas.to_datetime(["2000-01-01T00Z"])), 300.0)
    with pytest.raises(ValueError, match="align"):
        co2.ph(frame.p, frame.h[::-1])


def test_arrays_of_xarray():
    xarray = pytest.importorskip("xarray")
    pres = xarray.DataArray([8000.0, 9000.0], dims="p", coords={"p": [8, 9]})
    enth = xarray.DataArray([300.0, 400.0, 450.0], dims="h")
    state = co2.ph(pres, enth)
    assert state.dens.dims == ("p", "h") and state.dens.attrs["units"] == "kg/m3"
    assert float(state.dens.sel(p=9)[1]) == co2.ph(9000.0, 400.0).dens
    one, two = pres.assign_coords(case=1), enth.assign_coords(cell=("h", [1, 2, 3]), case=2)
    assert set(co2.ph(one, two).cp.coords) == set((one + two).coords) == {"p", "cell"}
    with pytest.raises(ValueError):
        co2.ph(pres, xarray.DataArray([1.0, 2.0], dims="p", coords={"p": [1, 2]}))


def test_units_do_not_get_lost():
    class Quantity:
        def m_as(self, unit):
            raise NotImplementedError

    with pytest.raises(TypeError, match="pres has a unit: give its magnitude in kPa$"):
        co2.ph(Quantity(), 400.0)
