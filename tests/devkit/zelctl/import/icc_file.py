"""ICC profiles byte by byte (ICC.1:2001), for what no program writes."""
import struct


def fixed(*values):
    return b"".join(struct.pack(">i", round(65536 * value)) for value in values)


def xyz(*values):
    return b"XYZ \0\0\0\0" + fixed(*values)


def matrix(*values):
    return b"sf32\0\0\0\0" + fixed(*values)


def curve(*entries):
    """None: light is the signal; one: an exponent in 1/256; more: light in 1/65535."""
    return b"curv\0\0\0\0" + struct.pack(f">I{len(entries)}H", len(entries), *entries)


def profile(tags, version=2, device=b"mntr", space=b"RGB "):
    place = 132 + 12 * len(tags)
    table, data = struct.pack(">I", len(tags)), b""
    for name, content in tags.items():
        content += b"\0" * (-len(content) % 4)
        table += name.encode() + struct.pack(">II", place + len(data), len(content))
        data += content
    header = struct.pack(">I4sI4s4s4s12s4s28x12s48x", place + len(data), b"test", version << 24,
                         device, space, b"XYZ ", struct.pack(">6H", 2026, 1, 1, 0, 0, 0), b"acsp",
                         fixed(0.9642, 1, 0.8249))
    return header + table + data


def srgb_tags():
    """Colorants of IEC 61966-2-1 adapted to D50 by Bradford, and the white that they were
    adapted from, as profiles of version 2 have them."""
    return {"wtpt": xyz(0.9505, 1, 1.0891),
            "rXYZ": xyz(0.43607, 0.22249, 0.01392), "gXYZ": xyz(0.38515, 0.71687, 0.09708),
            "bXYZ": xyz(0.14307, 0.06061, 0.71410),
            "rTRC": curve(563), "gTRC": curve(563), "bTRC": curve(563)}
