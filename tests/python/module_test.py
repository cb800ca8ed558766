"""What a Python program meets beside the answers: arrays that share memory, records, errors, Python
objects as windows, signatures, and Ctrl-C."""

import gc
import inspect
import os
import pydoc
import signal
import tempfile
import unittest
import weakref
from decimal import Decimal
from fractions import Fraction

import numpy
import torlib
from torlib import _torlib


def error_of(call, *arguments, **named):
    try:
        call(*arguments, **named)
    except torlib.RunTimeError as error:
        return error.number, str(error)
    return None


def mirror_server(case):
    """An object of another maker's server, entered into a registry of this case's own."""
    folder = tempfile.TemporaryDirectory()
    case.addCleanup(folder.cleanup)
    registry = os.path.join(folder.name, "components.reg")
    key = "{51D3A001-0000-0000-0000-000000000000}"
    with open(registry, "w") as file:
        file.write(f"[class {key}]\nserver = {os.environ['TORLIB_RECORD_SERVER']}\n\n"
                   f"[progid Test.Mirror]\nclass = {key}\n")
    os.environ["TORLIB_REGISTRY"] = registry
    return torlib.CreateObject("Test.Mirror")


class Arrays(unittest.TestCase):
    def test_bounds_indices_and_shared_memory(self):
        a = torlib.Array((1, 3), (-1, 2))
        view = numpy.asarray(a)
        self.assertEqual((view.shape, view.dtype, view.strides), ((3, 4), numpy.float32, (4, 12)))
        a[3, -1] = 2.5
        view[0, 3] = 7
        self.assertEqual((view[2, 0], a[1, 2]), (2.5, 7))
        self.assertEqual((a.LBound(2), a.UBound(2), a.Dimensions, len(a)), (-1, 2, 2, 3))
        a[:] = numpy.arange(12).reshape(3, 4)
        self.assertEqual(a[2, 1], 6)
        for index in slice(1, 2), "x":
            with self.assertRaises(TypeError):
                torlib.Array((1, 3))[index]
        for index in (0, -1), (1, 3), 2, (4, 0):
            self.assertEqual(error_of(a.__getitem__, index)[0], 9, index)
        self.assertEqual(error_of(a.__setitem__, (1, 0), 1e39)[0], 6)

    def test_every_element_kind(self):
        for dtype, value in [("float32", 0.5), (numpy.int16, 7), (numpy.dtype("int32"), 70000),
                             (float, 0.1), (str, "\u00e4\U0001f600"),
                             (torlib.EdgeType, torlib.EdgeType.InnerEdge),
                             (torlib.Vec3, torlib.Vec3(1, 2, 3))]:
            a = torlib.Array((1, 2), dtype=dtype)
            a[2] = value
            self.assertEqual(list(a)[1], value, dtype)
            self.assertIs(type(a[2]), type(value))
        self.assertEqual(error_of(torlib.Array, 3, dtype="complex64")[0], 13)
        with self.assertRaises(BufferError):
            memoryview(torlib.Array(3, dtype=str))

    def test_a_view_holds_the_bounds_and_outlives_the_array(self):
        a = torlib.Array((1, 3))
        view = a[:]
        self.assertEqual(error_of(a.ReDim, 5)[0], 10)
        view[1] = 4
        a.ReDim((1, 3))
        self.assertEqual(view.tolist(), [0, 0, 0])
        del view
        a.ReDim(5)
        a[5] = 8
        last = a[:]
        del a
        self.assertEqual(last[5], 8)

    def test_a_variant_takes_any_number(self):
        corners = numpy.array([0, 0, 2, 2, 0], numpy.float32), numpy.array([0, 0, 0, 2, 2], numpy.float32)
        inside = torlib.Geometry_Class().PointInPolygon
        for kind in float, Fraction, Decimal, numpy.float64, numpy.float32, str:
            self.assertTrue(inside(4, *corners, 1, kind("0.5")), kind)
            self.assertFalse(inside(4, *corners, 1, kind("2.5")), kind)
        for kind in int, numpy.int16:
            self.assertTrue(inside(4, *corners, 1, kind(1)), kind)

    def test_numpy_arguments(self):
        math = torlib.Math_Class()
        a = numpy.zeros((3, 3), numpy.float32)
        a[1:, 1:] = [[4, 1], [2, 3]]
        b = numpy.zeros((3, 3), numpy.float32, order="F")
        math.InverseMatrix(2, a, b)
        numpy.testing.assert_allclose(b[1:, 1:] @ a[1:, 1:], numpy.eye(2), atol=1e-6)
        frozen = b.copy(order="F")
        frozen.flags.writeable = False
        for bad, number, words in [
                (numpy.ones((4, 4), numpy.float32, order="F"), 10, "B: "),
                (numpy.ones((3, 3), numpy.float32), 13, "asfortranarray"),
                (numpy.ones((3, 3), order="F"), 13, "float32 is needed, not of float64"),
                (numpy.ones((3, 3), ">f4", order="F"), 13, "float32 is needed"),
                (numpy.ones((6, 3), numpy.float32, order="F")[::2], 13, "stored by columns"),
                (numpy.ones(6, numpy.float32)[::2], 13, "ascontiguousarray"),
                (numpy.ones((2, 2, 2), numpy.float32), 13, "two dimensions"),
                (frozen, 13, "read-only"), (torlib.Array(2, 2, dtype=float), 13, "B: "),
                (None, 13, "B: None"), ([1, 2], 13, "B: ")]:
            before = None if bad is None else numpy.array(bad)
            error = error_of(math.InverseMatrix, 2, a, bad)
            self.assertEqual((error and error[0], words in str(error)), (number, True), error)
            if bad is not None:
                numpy.testing.assert_array_equal(before, numpy.array(bad))
        self.assertIsNone(error_of(math.InverseMatrix, 2, frozen, b))


class Calls(unittest.TestCase):
    def test_signatures_and_documentation_come_from_the_table(self):
        solve = torlib.FEM_Class.SolveMatrix
        self.assertEqual(str(inspect.signature(solve)),
                         "(self, Nw, N3, A, Q, FrmShow=None, PrograssBarMode=False, ObjStbar=None)")
        text = pydoc.plain(pydoc.render_doc(solve))
        self.assertIn("Solves the banded system in place", text)
        self.assertIn("A: array of float32, changed", text)
        for name, doc, members in _torlib.classes():
            listed = dir(getattr(torlib, name))
            self.assertLessEqual({member[0] for member in members}, set(listed))
            self.assertEqual(getattr(torlib, name).__doc__, doc)

    def test_results_come_in_order_of_declaration(self):
        math, torva = torlib.Math_Class(), torlib.TORVAClass()
        new = numpy.array([0, 1, 2], numpy.float32)
        settled, big = math.CheckConvergence(2, new, E_Old=new.copy(), Tolerance=0.1, Big=5)
        self.assertEqual((settled, big), (True, 0))
        self.assertEqual(math.CheckConvergence(2, new, new.copy(), 0.1), (True, None))
        line = torva.SetLineList("\u0644\u0627", "Area", "A", "m2", "1", 8, 4)
        self.assertEqual(line, "\u0644\u0627Area    A   m2   = 1\r\n")
        self.assertEqual(error_of(torva.Private_Space, 40000)[0], 6)
        for wrong in (), (1, 2):
            with self.assertRaises(TypeError):
                torva.Private_Space(*wrong)
        with self.assertRaises(AttributeError):
            torva.Exitcontroll = 1

    def test_objects_keep_their_identity(self):
        self.assertIs(type(torlib.CreateObject("torvalib.fem_class")), torlib.FEM_Class)
        self.assertIs(torlib.Default(torlib.Math_Class), torlib.Default(torlib.Math_Class))
        self.assertEqual(error_of(torlib.CreateObject, "TORVALib.Nothing")[0], 429)


class Records(unittest.TestCase):
    def setUp(self):
        self.mirror = mirror_server(self)

    def test_records_and_arrays_of_them_are_changed_in_place(self):
        points, to, count = torlib.Array(2, dtype=torlib.Vec3), torlib.Vec3(), torlib.ByRef(4)
        self.mirror.Invoke("Flip", torlib.Vec3(1, 2, 3), to, points, count=count)
        self.assertEqual((to, points[1], count.value), (torlib.Vec3(1, 2, -3),) * 2 + (5,))
        self.assertEqual(points[:]["Z"].tolist(), [0, -3, 0])
        points[2] = to
        points[2].x = 9
        self.assertEqual((points[2].x, to.x), (9, 1))
        element = points[0]
        self.assertEqual(error_of(points.ReDim, 7)[0], 10, "an element looks at the memory")
        del element
        points.ReDim(7)
        plane = torlib.PlaneData(Normal=to, H=2)
        plane.Normal.Y = 8
        self.assertEqual((plane.Normal.Y, to.Y), (8, 2))
        self.assertIn("Vec3 is needed, not a record PlaneData",
                      error_of(self.mirror.Invoke, "Flip", plane, to, points, 1)[1])
        self.assertEqual(error_of(setattr, plane, "Normal", plane)[0], 13)

    def test_arrays_inside_records(self):
        surface = torlib.FVertex(NTyColor=5)
        for node in 7, 8:
            self.mirror.Invoke("AddCorner", surface, node)
        self.assertEqual((surface.Count, list(surface.Vert), surface.NTyColor), (2, [0, 7, 8], 5))
        element = torlib.FElementType(Type=torlib.ElementType.TriangularElement)
        element.Node[4] = 3
        nodes = element.Node
        del element
        self.assertEqual(nodes[:].tolist(), [0, 0, 0, 0, 3])
        layout = torlib.Array(1, dtype=torlib.FElementType)[:].dtype
        self.assertEqual([layout.fields[name][1] for name in layout.names], [0, 4, 16])

    def test_arrays_and_names_reach_a_python_object(self):
        class Host:
            def visited(self, array, Place):
                array[Place] = 6
                self.kept = array
                return array[1] + Place

        host, a = Host(), numpy.ones(3, numpy.float32)
        self.assertEqual(self.mirror.Invoke("Visit", host, a), 3)
        self.assertEqual(a.tolist(), [1, 1, 6])
        a[0] = 4
        self.assertEqual(host.kept[0], 4)
        self.assertIs(self.mirror.Invoke("Same", host), host)
        self.assertIs(self.mirror.Invoke("Same", self.mirror), self.mirror)


class Windows(unittest.TestCase):
    def test_an_exception_of_a_window_comes_out_as_itself(self):
        class Mine(Exception):
            pass

        class Window:
            def Unload(self):
                raise Mine("closed")

        torva = torlib.TORVAClass()
        torva.Exitcontrol = 3
        self.addCleanup(setattr, torva, "Exitcontrol", 0)
        with self.assertRaisesRegex(Mine, "closed"):
            torva.ActivateDoEvents(Window())
        self.assertTrue(torva.ActivateDoEvents(FrmShow=object()), "nothing to ask it for")
        self.assertEqual(error_of(torva.ActivateDoEvents, 3)[0], 424)

    def test_control_c_cancels_a_long_solution_and_takes_the_request_back(self):
        n, width = 12000, 600
        a, q = torlib.Array((1, n + width - 1), (1, width)), torlib.Array((1, n + width - 1))
        matrix = a[:]
        matrix[:n, 0] = 4 * width
        for offset in range(1, width):
            matrix[:n - offset, offset] = -1
        torva, log = torlib.TORVAClass(), []

        class Window:
            def Unload(self):
                log.append(torva.Exitcontrol)

        torva.Exitcontrol = 6
        self.addCleanup(setattr, torva, "Exitcontrol", 0)
        mirror = mirror_server(self)
        mirror.Invoke("WatchPolls")  # another source beside the one that looks for signals
        self.addCleanup(mirror.Invoke, "EndWatch")
        old = signal.signal(signal.SIGVTALRM, signal.default_int_handler)
        self.addCleanup(signal.signal, signal.SIGVTALRM, old)
        signal.setitimer(signal.ITIMER_VIRTUAL, 0.03)
        with self.assertRaises(KeyboardInterrupt):
            torlib.FEM_Class().SolveMatrix(width, n, a, q, Window())
        self.assertEqual((log, torva.Exitcontrol), ([3], 6))
        self.assertNotEqual(matrix[0, 1], -1, "the elimination had begun")
        self.assertEqual(matrix[n - 2, 1], -1, "and did not come to its end")
        self.assertFalse(torva.ActivateDoEvents())
        self.assertGreater(mirror.Invoke("EndWatch"), 1)


class Events(unittest.TestCase):
    def setUp(self):
        self.mirror, self.log = mirror_server(self), []

    def test_a_callable_is_connected_until_it_is_disconnected(self):
        first = self.mirror.Connect("turned", lambda n, side: self.log.append((n, side)))
        second = self.mirror.Connect("Turned", lambda n, side: self.log.append(-n))
        self.assertNotEqual(first, second)
        self.mirror.Invoke("Turn", 2)
        self.assertEqual(self.log, [(1, "left"), -1, (2, "left"), -2])
        self.assertTrue(self.mirror.Disconnect(first))
        self.assertFalse(self.mirror.Disconnect(first))
        self.log.clear()
        self.mirror.Invoke("Turn", 1)
        self.assertEqual(self.log, [-1])

    def test_an_object_handles_the_events_it_has_members_for(self):
        log = self.log

        class Host:
            def turned(self, number, side):
                log.append(side * number)

        self.mirror.Connect(Host())
        self.mirror.Connect(object())
        self.mirror.Invoke("Turn", 2)
        self.assertEqual(log, ["left", "leftleft"])

    def test_a_handler_may_disconnect_itself_and_fail(self):
        class Mine(Exception):
            pass

        def handler(number, side):
            self.mirror.Disconnect(connection)
            self.log.append(number)
            raise Mine("turned away")

        connection = self.mirror.Connect("Turned", handler)
        kept = weakref.ref(handler)
        with self.assertRaisesRegex(Mine, "turned away"):
            self.mirror.Invoke("Turn", 3)
        self.assertEqual(self.log, [1])
        self.mirror.Invoke("Turn", 1)
        self.assertEqual(self.log, [1])
        del handler
        gc.collect()
        self.assertIsNone(kept(), "the connection held it, and is over")

    def test_the_source_lets_its_handlers_go(self):
        def handler(number, side):
            pass

        kept = weakref.ref(handler)
        self.mirror.Connect("Turned", handler)
        del handler
        self.assertIsNotNone(kept())
        self.mirror = None
        gc.collect()
        self.assertIsNone(kept())

    def test_what_cannot_be_connected(self):
        self.assertIn("did you mean Turned?",
                      error_of(self.mirror.Connect, "Turnd", self.log.append)[1])
        self.assertEqual(error_of(torlib.Math_Class().Connect, "Turned", self.log.append)[0], 438)
        with self.assertRaises(TypeError):
            self.mirror.Connect("Turned", 3)


if __name__ == "__main__":
    unittest.main()
