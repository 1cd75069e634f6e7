#!/usr/bin/env python3
"""Draws the program's icons as PNG files, with nothing but the standard library.

The application icon (AboutIcon.png, for the About window) is a polar night: a sky from deep blue to teal, a crescent moon,
a few stars, snow-capped mountains and a dark sea, on a rounded square. The tray icon
(MenuBarIcon.png) is the same mountains and moon as a light silhouette with a dark rim,
so that it reads on dark and light panels alike.

The desktop entry and the installed icon theme get the same picture as a scalable SVG drawn from the same
shapes (hicolor/scalable/apps/io.github.nivalis.Nivalis.svg) and as PNGs at the usual
theme sizes (hicolor/<n>x<n>/apps/io.github.nivalis.Nivalis.png).

Run it from this folder: python3 draw_icons.py
"""

import math
import struct
import zlib

SS = 4  # samples per pixel along each axis


def png(path, width, height, pixels):
    """Writes 8-bit RGBA rows (a list of bytearrays) as a PNG file."""
    raw = b"".join(b"\x00" + bytes(row) for row in pixels)

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n")
        f.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)))
        f.write(chunk(b"IDAT", zlib.compress(raw, 9)))
        f.write(chunk(b"IEND", b""))


def inside_polygon(x, y, poly):
    hit = False
    j = len(poly) - 1
    for i in range(len(poly)):
        xi, yi = poly[i]
        xj, yj = poly[j]
        if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
            hit = not hit
        j = i
    return hit


def inside_rounded_square(x, y, radius):
    cx = min(max(x, radius), 1 - radius)
    cy = min(max(y, radius), 1 - radius)
    return (x - cx) ** 2 + (y - cy) ** 2 <= radius ** 2


# Shapes in unit coordinates, y downwards.
FAR_RIDGE = [(0.0, 0.62), (0.12, 0.50), (0.22, 0.56), (0.36, 0.40), (0.47, 0.52), (0.58, 0.45),
             (0.72, 0.57), (0.86, 0.47), (1.0, 0.55), (1.0, 0.80), (0.0, 0.80)]
NEAR_PEAK = [(0.02, 0.80), (0.24, 0.47), (0.33, 0.55), (0.50, 0.28), (0.66, 0.52), (0.74, 0.45),
             (0.98, 0.80)]
# The snow on the near peaks: everything of the peak above this line.
SNOW = [(0.0, 0.58), (0.20, 0.54), (0.27, 0.58), (0.36, 0.50), (0.43, 0.44), (0.50, 0.47),
        (0.58, 0.42), (0.64, 0.52), (0.72, 0.53), (0.80, 0.56), (1.0, 0.60), (1.0, 0.0), (0.0, 0.0)]
STARS = [(0.16, 0.16, 0.012), (0.30, 0.26, 0.008), (0.45, 0.12, 0.010), (0.58, 0.24, 0.007),
         (0.10, 0.34, 0.007), (0.86, 0.38, 0.008), (0.40, 0.33, 0.006)]
MOON = (0.76, 0.22, 0.10)
MOON_SHADOW = (0.81, 0.18, 0.085)


def mix(a, b, t):
    return tuple(a[i] + (b[i] - a[i]) * t for i in range(len(a)))


def app_colour(x, y):
    """Colour (r, g, b, a in 0..1) of the application icon at a point."""
    if not inside_rounded_square(x, y, 0.18):
        return (0, 0, 0, 0)
    sky = mix((0.04, 0.07, 0.20), (0.10, 0.38, 0.50), min(1.0, y / 0.8))
    colour = sky + (1.0,)
    for sx, sy, r in STARS:
        if (x - sx) ** 2 + (y - sy) ** 2 <= r * r:
            colour = (1.0, 1.0, 0.95, 1.0)
    mx, my, mr = MOON
    hx, hy, hr = MOON_SHADOW
    if (x - mx) ** 2 + (y - my) ** 2 <= mr * mr and (x - hx) ** 2 + (y - hy) ** 2 > hr * hr:
        colour = (0.98, 0.95, 0.80, 1.0)
    if inside_polygon(x, y, FAR_RIDGE):
        colour = mix((0.36, 0.48, 0.62), (0.22, 0.30, 0.44), (y - 0.4) / 0.4) + (1.0,)
    if inside_polygon(x, y, NEAR_PEAK):
        shade = 0.0 if x < 0.5 + (y - 0.28) * 0.25 else 1.0
        if inside_polygon(x, y, SNOW):
            colour = mix((0.97, 0.98, 1.0), (0.74, 0.82, 0.92), shade) + (1.0,)
        else:
            colour = mix((0.32, 0.40, 0.52), (0.20, 0.26, 0.36), shade) + (1.0,)
    if y > 0.80:
        wave = 0.03 * math.sin(x * 40.0 + y * 30.0)
        colour = mix((0.05, 0.16, 0.28), (0.02, 0.08, 0.16), (y - 0.8) / 0.2 + wave) + (1.0,)
    return colour


def tray_shape(x, y):
    """1 inside the tray icon's silhouette, else 0."""
    peaks = [(0.0, 0.92), (0.30, 0.42), (0.42, 0.56), (0.60, 0.24), (1.0, 0.92)]
    mx, my, mr = (0.80, 0.20, 0.16)
    hx, hy, hr = (0.88, 0.13, 0.14)
    moon = (x - mx) ** 2 + (y - my) ** 2 <= mr * mr and (x - hx) ** 2 + (y - hy) ** 2 > hr * hr
    return 1.0 if inside_polygon(x, y, peaks) or moon else 0.0


def render(size, sample):
    rows = []
    n = SS * SS
    for py in range(size):
        row = bytearray()
        for px in range(size):
            acc = [0.0, 0.0, 0.0, 0.0]
            for sy in range(SS):
                for sx in range(SS):
                    r, g, b, a = sample((px + (sx + 0.5) / SS) / size, (py + (sy + 0.5) / SS) / size)
                    acc[0] += r * a
                    acc[1] += g * a
                    acc[2] += b * a
                    acc[3] += a
            alpha = acc[3] / n
            if alpha > 0:
                colour = [acc[i] / acc[3] for i in range(3)]
            else:
                colour = [0, 0, 0]
            row += bytes([round(c * 255) for c in colour] + [round(alpha * 255)])
        rows.append(row)
    return rows


def tray_sample_for(size):
    rim = 1.2 / size  # a dark rim about one pixel wide around the light silhouette

    def sample(x, y):
        if tray_shape(x, y):
            return (0.94, 0.96, 1.0, 1.0)
        for dx, dy in ((rim, 0), (-rim, 0), (0, rim), (0, -rim)):
            if tray_shape(x + dx, y + dy):
                return (0.10, 0.14, 0.22, 0.85)
        return (0, 0, 0, 0)

    return sample


APP_ID = "io.github.nivalis.Nivalis"
THEME_SIZES = (16, 24, 32, 48, 64, 128, 256, 512)


def svg_points(poly):
    return " ".join("%g,%g" % (x * 256, y * 256) for x, y in poly)


def app_svg():
    """The application icon as SVG in a 256-unit box: the shapes of app_colour, drawn as vectors."""
    def rgb(c):
        return "#%02x%02x%02x" % tuple(round(v * 255) for v in c[:3])

    mx, my, mr = MOON
    hx, hy, hr = MOON_SHADOW
    # The line that splits the near peak into its lit and its shaded side: x = 0.5 + (y - 0.28) / 4.
    lit_side = [(0.0, 0.0), (0.5 - 0.07, 0.0), (0.5 + 0.18, 1.0), (0.0, 1.0)]
    stars = "".join('<circle cx="%g" cy="%g" r="%g" fill="#fffff2"/>' % (x * 256, y * 256, r * 256)
                    for x, y, r in STARS)
    return f"""<svg xmlns="http://www.w3.org/2000/svg" width="256" height="256" viewBox="0 0 256 256">
<defs>
<linearGradient id="sky" x1="0" y1="0" x2="0" y2="204.8" gradientUnits="userSpaceOnUse">
<stop offset="0" stop-color="{rgb((0.04, 0.07, 0.20))}"/><stop offset="1" stop-color="{rgb((0.10, 0.38, 0.50))}"/>
</linearGradient>
<linearGradient id="ridge" x1="0" y1="102.4" x2="0" y2="204.8" gradientUnits="userSpaceOnUse">
<stop offset="0" stop-color="{rgb((0.36, 0.48, 0.62))}"/><stop offset="1" stop-color="{rgb((0.22, 0.30, 0.44))}"/>
</linearGradient>
<linearGradient id="sea" x1="0" y1="204.8" x2="0" y2="256" gradientUnits="userSpaceOnUse">
<stop offset="0" stop-color="{rgb((0.05, 0.16, 0.28))}"/><stop offset="1" stop-color="{rgb((0.02, 0.08, 0.16))}"/>
</linearGradient>
<clipPath id="square"><rect width="256" height="256" rx="{0.18 * 256:g}"/></clipPath>
<clipPath id="peak"><polygon points="{svg_points(NEAR_PEAK)}"/></clipPath>
<clipPath id="snow"><polygon points="{svg_points(SNOW)}"/></clipPath>
<clipPath id="lit"><polygon points="{svg_points(lit_side)}"/></clipPath>
<mask id="crescent"><rect width="256" height="256" fill="#fff"/><circle cx="{hx * 256:g}" cy="{hy * 256:g}" r="{hr * 256:g}" fill="#000"/></mask>
</defs>
<g clip-path="url(#square)">
<rect width="256" height="256" fill="url(#sky)"/>
{stars}
<circle cx="{mx * 256:g}" cy="{my * 256:g}" r="{mr * 256:g}" fill="{rgb((0.98, 0.95, 0.80))}" mask="url(#crescent)"/>
<polygon points="{svg_points(FAR_RIDGE)}" fill="url(#ridge)"/>
<g clip-path="url(#peak)">
<rect width="256" height="256" fill="{rgb((0.20, 0.26, 0.36))}"/>
<rect width="256" height="256" fill="{rgb((0.32, 0.40, 0.52))}" clip-path="url(#lit)"/>
<g clip-path="url(#snow)">
<rect width="256" height="256" fill="{rgb((0.74, 0.82, 0.92))}"/>
<rect width="256" height="256" fill="{rgb((0.97, 0.98, 1.0))}" clip-path="url(#lit)"/>
</g>
</g>
<rect y="204.8" width="256" height="51.2" fill="url(#sea)"/>
</g>
</svg>
"""


if __name__ == "__main__":
    import os

    os.makedirs("hicolor/scalable/apps", exist_ok=True)
    with open("hicolor/scalable/apps/%s.svg" % APP_ID, "w") as f:
        f.write(app_svg())
    for size in THEME_SIZES:
        folder = "hicolor/%dx%d/apps" % (size, size)
        os.makedirs(folder, exist_ok=True)
        png("%s/%s.png" % (folder, APP_ID), size, size, render(size, app_colour))
    app = render(256, app_colour)
    png("AboutIcon.png", 256, 256, app)
    png("MenuBarIcon.png", 44, 44, render(44, tray_sample_for(44)))
