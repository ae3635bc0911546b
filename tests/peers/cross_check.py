"""Has peers read what zyr3d writes, and zyr3d what peers write; prints a table of what came through.

Fails when a value came through worse than the known limits of a peer allow.

usage: cross_check.py ZYR3D PCL_PEER DATA_FOLDER WORK_FOLDER
"""
import pathlib
import re
import subprocess
import sys

import numpy as np

try:
    import open3d
except ImportError:
    open3d = None

TOOL, PCL_PEER = sys.argv[1:3]
DATA, WORK = (pathlib.Path(folder) for folder in sys.argv[3:5])
ROWS = []
FAULTS = []
COLUMNS = ("Coordinates", "Normals", "Colours", "Triangles")

# What peers are known to do worse than exactly: who, in which direction and format, to which column,
# and the text of the table or how large a difference is, as a share of the largest value.
LIMITS = (
    # zeros for doubles of binary PCD files
    ("Open3D", "we write", "PCD (binary|compressed) double", "Coordinates|Normals", 1.05),
    # six significant digits
    ("Open3D", "we read", "(PLY|PLY mesh) ascii|OBJ", "Coordinates|Normals", 5e-6),
    # ten decimals
    ("Open3D", "we read", "XYZ", "Coordinates", 1e-9),
    # its importer of text
    ("Open3D", "we write", "STL ascii", "Coordinates", 1e-6),
    ("Open3D", "we write", "OBJ double", "Normals", 1e-9),
    ("Open3D", "we write", "OBJ double", "Triangles", "by corner"),
    ("PCL", "we (read|write)", "OBJ.*", "Colours", "not there"),
    # a format without shared vertices
    (".*", "we (read|write)", "STL .*", "Triangles", "by corner"),
)


class Scene:
    """Arrays of a cloud or mesh; what is missing is None."""

    def __init__(self, xyz, normals=None, rgb=None, faces=None):
        self.xyz, self.normals, self.rgb, self.faces = xyz, normals, rgb, faces


# What the values are held against: read and written here, without zyr3d.

def write_truth(scene, path):
    """A binary PLY file of doubles."""
    columns, header = [("xyz", "<f8", 3)], ["ply", "format binary_little_endian 1.0"]
    header.append(f"element vertex {len(scene.xyz)}")
    header += [f"property double {c}" for c in "xyz"]
    if scene.normals is not None:
        columns.append(("normals", "<f8", 3))
        header += [f"property double n{c}" for c in "xyz"]
    if scene.rgb is not None:
        columns.append(("rgb", "u1", 3))
        header += [f"property uchar {c}" for c in ("red", "green", "blue")]
    table = np.zeros(len(scene.xyz), dtype=columns)
    for name, *_ in columns:
        table[name] = getattr(scene, name)
    body = table.tobytes()
    if scene.faces is not None:
        header += [f"element face {len(scene.faces)}", "property list uchar int vertex_indices"]
        faces = np.zeros(len(scene.faces), dtype=[("n", "u1"), ("corners", "<i4", 3)])
        faces["n"], faces["corners"] = 3, scene.faces
        body += faces.tobytes()
    path.write_bytes(("\n".join(header + ["end_header"]) + "\n").encode() + body)


def read_truth(path):
    """A binary PLY file of doubles, as zyr3d writes it."""
    header, body = path.read_bytes().split(b"end_header\n", 1)
    columns, faces, element, count = [], None, "", {}
    for line in header.decode().splitlines():
        words = line.split()
        if words[0] == "element":
            element, count[words[1]] = words[1], int(words[2])
        if words[0] == "property" and element == "vertex":
            columns.append((words[2], {"double": "<f8", "float": "<f4", "uchar": "u1"}[words[1]]))
        if words[0] == "property" and element == "face":
            face = [("n", "u1"), ("corners", "<i4", 3)] if words[1] == "list" else face
            face = face if words[1] == "list" else face + [
                (words[2], {"double": "<f8", "uchar": "u1"}[words[1]])]
    table = np.frombuffer(body, dtype=columns, count=count["vertex"])
    if count.get("face"):
        faces = np.frombuffer(body, dtype=face, offset=table.nbytes, count=count["face"])["corners"]
    pick = lambda names: (np.stack([table[n] for n in names], axis=1)
                          if names[0] in table.dtype.names else None)
    return Scene(pick(["x", "y", "z"]), pick(["nx", "ny", "nz"]), pick(["red", "green", "blue"]),
                 faces)


# The peers.

def zyr3d(*arguments):
    subprocess.run([TOOL, "convert", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)


def clean(name):
    for part in WORK.glob(name + ".*"):
        part.unlink()
    return WORK / name


class Pcl:
    name = "PCL"

    def read(self, path, is_mesh):
        name = clean("peer_in")
        subprocess.run([PCL_PEER, "read", path, name], check=True, capture_output=True)
        load = lambda part, kind: (np.fromfile(f"{name}.{part}", kind).reshape(-1, 3)
                                   if pathlib.Path(f"{name}.{part}").exists() else None)
        return Scene(load("xyz", "<f8"), load("normals", "<f8"), load("rgb", "u1"),
                     load("faces", "<i4"))

    def write(self, scene, path, mode):
        name = clean("peer_out")
        for part, kind in (("xyz", "<f8"), ("normals", "<f8"), ("rgb", "u1"), ("faces", "<i4")):
            values = getattr(scene, part)
            if values is not None:
                np.ascontiguousarray(values, dtype=kind).tofile(f"{name}.{part}")
        subprocess.run([PCL_PEER, "write", name, path, mode], check=True, capture_output=True)


class Open3d:
    name = "Open3D"

    def read(self, path, is_mesh):
        if is_mesh:
            mesh = open3d.io.read_triangle_mesh(str(path))
            points, has_normals, has_colors = (mesh.vertices, mesh.has_vertex_normals(),
                                               mesh.has_vertex_colors())
            normals, colors = mesh.vertex_normals, mesh.vertex_colors
        else:
            mesh = open3d.io.read_point_cloud(str(path), remove_nan_points=False,
                                              remove_infinite_points=False)
            points, has_normals, has_colors = mesh.points, mesh.has_normals(), mesh.has_colors()
            normals, colors = mesh.normals, mesh.colors
        return Scene(np.asarray(points), np.asarray(normals) if has_normals else None,
                     np.rint(np.asarray(colors) * 255).astype("u1") if has_colors else None,
                     np.asarray(mesh.triangles) if is_mesh else None)

    def write(self, scene, path, mode):
        vectors = open3d.utility.Vector3dVector
        colors = None if scene.rgb is None else vectors(scene.rgb / 255.0)
        ascii_, compressed = mode == "ascii", mode == "compressed"
        if scene.faces is None:
            cloud = open3d.geometry.PointCloud(vectors(scene.xyz))
            if scene.normals is not None:
                cloud.normals = vectors(scene.normals)
            if colors is not None:
                cloud.colors = colors
            assert open3d.io.write_point_cloud(str(path), cloud, ascii_, compressed)
            return
        mesh = open3d.geometry.TriangleMesh(vectors(scene.xyz),
                                            open3d.utility.Vector3iVector(scene.faces))
        if scene.normals is not None:
            mesh.vertex_normals = vectors(scene.normals)
        if colors is not None:
            mesh.vertex_colors = colors
        if path.suffix == ".stl":
            mesh.compute_triangle_normals()
        assert open3d.io.write_triangle_mesh(str(path), mesh, ascii_, compressed)


# The comparison.

def numbers(got, truth):
    if truth is None:
        return "-"
    if got is None:
        return "not there"
    if got.shape != truth.shape:
        return f"{len(got)} of {len(truth)}"
    if np.array_equal(got, truth, equal_nan=True):
        return "equal"
    if truth.dtype.kind == "f" and np.array_equal(got.astype("f4"), truth.astype("f4"),
                                                  equal_nan=True):
        return "equal as floats"
    gap = np.abs(got.astype("f8") - truth.astype("f8"))
    return f"differ by {np.nanmax(gap):.2g}"


def is_within(text, limit, scale):
    if isinstance(limit, str):
        return text == limit
    gap = re.fullmatch(r"differ by (\S+)", text)
    return gap is not None and float(gap[1]) <= limit * scale


def is_expected(format_, direction, peer, column, text, scale):
    if text in ("equal", "-"):
        return True
    # Of doubles that we write nothing may be lost.
    if text == "equal as floats" and (direction == "we read" or format_.endswith("float")):
        return True
    return any(re.fullmatch(who, peer) and re.fullmatch(way, direction)
               and re.fullmatch(what, format_) and re.fullmatch(where, column)
               and is_within(text, limit, scale) for who, way, what, where, limit in LIMITS)


def record(format_, direction, peer, data, cells, scales):
    ROWS.append((format_, direction, peer, data, *(cells + ["-"] * 3)[:4]))
    for column, text, scale in zip(COLUMNS, cells, scales):
        if not is_expected(format_, direction, peer, column, text, scale):
            FAULTS.append(f"{format_}, {direction}, {peer}, {data}: {column}: {text}")


def largest(values):
    return 0.0 if values is None else float(np.nanmax(np.abs(values.astype("f8"))))


def by_corner(scene, part):
    values = getattr(scene, part)
    return None if values is None else values[scene.faces].reshape(-1, 3)


def add_row(format_, direction, peer, data, got, truth):
    faces = numbers(got.faces, truth.faces)
    parts = ("xyz", "normals", "rgb")
    pick = getattr
    if truth.faces is not None and got.faces is not None and faces != "equal":
        # Vertices in another order, or several at one place: then what the triangles see counts.
        pick, faces = by_corner, "by corner"
    if format_.startswith("STL"):
        parts = ("xyz",)
    values = [numbers(pick(got, part), pick(truth, part)) for part in parts]
    record(format_, direction, peer, data, [*(values + ["-", "-"])[:3], faces],
           [largest(getattr(truth, part)) for part in ("xyz", "normals", "rgb", "faces")])


def attempt(format_, direction, peer, data, work, truth):
    try:
        add_row(format_, direction, peer, data, work(), truth)
    except Exception as error:  # the table says so; the others go on
        FAULTS.append(f"{format_}, {direction}, {peer}, {data}: {error!r}"[:300])
        ROWS.append((format_, direction, peer, data, "failed", "-", "-", "-"))


def they_read(peer, data, own, truth, label, suffix, *options):
    path = WORK / f"ours.{suffix}"

    def work():
        zyr3d(own, path, *options)
        return peer.read(path, truth.faces is not None)
    attempt(label, "we write", peer.name, data, work, truth)


def we_read(peer, data, truth, label, suffix, mode):
    path, back = WORK / f"theirs.{suffix}", WORK / "back.ply"

    def work():
        peer.write(truth, path, mode)
        zyr3d(path, back, "--invalid", "nan")
        return read_truth(back)
    attempt(label, "we read", peer.name, data, work, truth)


def clouds():
    load = lambda folder, part: np.load(DATA / folder / f"{part}.npy")
    rgb = lambda folder: load(folder, "bgr")[:, ::-1].copy()
    milk = load("cloud_milk", "xyz")
    milk[milk[:, 0] >= 3.4e38] = np.nan
    yield "autzen", Scene(load("cloud_autzen", "xyz"), rgb=rgb("cloud_autzen"))
    yield "milk", Scene(milk, rgb=rgb("cloud_milk"))
    yield "rs1", Scene(load("cloud_rs1", "xyz"))
    # The vertices of a mesh, as the clouds have no normals.
    yield "vertices", Scene(load("mesh_frag115", "xyz"), load("mesh_frag115", "normals"),
                            rgb("mesh_frag115"))


def meshes():
    load = lambda folder, part: np.load(DATA / folder / f"{part}.npy")
    yield "frag_115", Scene(load("mesh_frag115", "xyz"), load("mesh_frag115", "normals"),
                            load("mesh_frag115", "bgr")[:, ::-1].copy(),
                            load("mesh_frag115", "faces"))
    yield "counter", Scene(load("mesh_counter", "xyz"), faces=load("mesh_counter", "faces"))


def cloud_rows(peers):
    for data, truth in clouds():
        source, own = WORK / "truth.ply", WORK / "own.zpt"
        write_truth(truth, source)
        zyr3d(source, own)
        keep = ["--invalid", "nan"]
        for peer in peers:
            for width in ("--float", "--double"):
                kind = "float" if width == "--float" else "double"
                for body in ("--ascii", "--binary", "--compressed"):
                    they_read(peer, data, own, truth, f"PCD {body[2:]} {kind}", "pcd", body, width,
                              *keep)
                for body in ("--ascii", "--binary", "--big-endian"):
                    they_read(peer, data, own, truth, f"PLY {body[2:]} {kind}", "ply", body, width,
                              *keep)
            for mode in ("ascii", "binary", "compressed"):
                we_read(peer, data, truth, f"PCD {mode}", "pcd", mode)
            for mode in ("ascii", "binary"):
                we_read(peer, data, truth, f"PLY {mode}", "ply", mode)
            if peer.name == "Open3D" and data != "milk":
                bare = Scene(truth.xyz)
                they_read(peer, data, own, bare, "XYZ", "xyz", *keep)
                we_read(peer, data, bare, "XYZ", "xyz", "ascii")
        zyr3d(own, WORK / "ours.npy")
        attempt("NPY", "we write", "NumPy", data,
                lambda: Scene(np.load(WORK / "ours.npy")), Scene(truth.xyz))
        np.save(WORK / "theirs.npy", truth.xyz)
        zyr3d(WORK / "theirs.npy", WORK / "back.ply", *keep)
        attempt("NPY", "we read", "NumPy", data,
                lambda: read_truth(WORK / "back.ply"), Scene(truth.xyz))
        zyr3d(own, WORK / "ours.csv", *keep)
        attempt("CSV", "we write", "NumPy", data, lambda: Scene(
            np.genfromtxt(WORK / "ours.csv", delimiter=",", skip_header=1)[:, :3]),
            Scene(truth.xyz))


def mesh_rows(peers):
    for data, truth in meshes():
        source, own = WORK / "truth.ply", WORK / "own.ztmt"
        write_truth(truth, source)
        zyr3d(source, own)
        for peer in peers:
            for width in ("--float", "--double"):
                for body in ("--ascii", "--binary", "--big-endian"):
                    they_read(peer, data, own, truth, f"PLY mesh {body[2:]} {width[2:]}", "ply",
                              body, width)
            they_read(peer, data, own, truth, "OBJ double", "obj")
            for body in ("--ascii", "--binary"):
                they_read(peer, data, own, truth, f"STL {body[2:]}", "stl", body)
            for mode in ("ascii", "binary"):
                we_read(peer, data, truth, f"PLY mesh {mode}", "ply", mode)
                if not (peer.name == "Open3D" and mode == "ascii"):  # it writes binary ones alone
                    we_read(peer, data, truth, f"STL {mode}", "stl", mode)
            we_read(peer, data, truth, "OBJ", "obj", "ascii")


def picture_rows():
    from PIL import Image
    for data, folder in (("rgbd", "range_rgbd"), ("counter", "range_counter")):
        grid = np.load(DATA / folder / "grid.npy")
        zyr3d(DATA / folder / "grid.npy", WORK / "own.zrt")
        for suffix in ("png", "tif", "npy"):
            zyr3d(WORK / "own.zrt", WORK / f"ours.{suffix}")
            got = (np.load(WORK / "ours.npy") if suffix == "npy"
                   else np.asarray(Image.open(WORK / f"ours.{suffix}")))
            peer = "NumPy" if suffix == "npy" else "Pillow"
            record(suffix.upper(), "we write", peer, data, [numbers(got, grid)], [0.0])
            if suffix != "npy":
                Image.fromarray(grid).save(WORK / f"theirs.{suffix}")
            else:
                np.save(WORK / "theirs.npy", np.asfortranarray(grid.astype(">u2")))
            zyr3d(WORK / f"theirs.{suffix}", WORK / "back.npy")
            record(suffix.upper(), "we read", peer, data,
                   [numbers(np.load(WORK / "back.npy"), grid)], [0.0])


def merged(rows, column):
    """Rows that differ in one column alone become one."""
    groups = {}
    for row in rows:
        groups.setdefault(row[:column] + row[column + 1:], []).append(row[column])
    return [key[:column] + (", ".join(names),) + key[column:] for key, names in groups.items()]


def main():
    peers = [Pcl()] + ([Open3d()] if open3d else [])
    cloud_rows(peers)
    mesh_rows(peers)
    picture_rows()
    head = ("Format", "Direction", "Peer", "Data", *COLUMNS)
    for row in (head, ("---",) * len(head), *merged(merged(ROWS, 3), 0)):
        print("| " + " | ".join(row) + " |")
    for fault in FAULTS:
        print(fault, file=sys.stderr)
    if open3d is None:
        print("Open3D is not there: nothing was held against it", file=sys.stderr)
    sys.exit(bool(FAULTS) or open3d is None)


main()
