#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Large inputs for cancel_reach, on a copy of the demo site, and the scripts that play them.

    cancel_reach_inputs.py SITE

Writes below SITE/c/data/large and over the lidar tiles of the site; scripts to SITE/reach/*.txt.
"""
import pathlib
import shutil
import sys

import numpy as np

SITE = pathlib.Path(sys.argv[1])
DATA = SITE / "c/data"
LARGE = DATA / "large"
REACH = SITE / "reach"
WEST, SOUTH = 2514950, 6859950  # of the ground model, which is 400 m wide and high
MIDDLE = (2515137.64, 6860125.0)
PHOTOS = ["im1", "im2", "im3", "im4", "im5", "im6", "surface1", "surface2", "surface3"]


def grid(side, spacing):
    east, north = np.meshgrid(np.arange(side) * spacing, np.arange(side) * spacing)
    height = 155 + 6 * np.sin(east / 40) + 4 * np.cos(north / 30)
    return WEST + east, SOUTH + north, height


def write_lines(path, columns, pattern):
    np.savetxt(path, np.column_stack(columns), fmt=pattern, delimiter=",")


def write_tin(name, side):
    east, north, height = grid(side, 400 / (side - 1))
    height += 100  # TIN2RASTER_Fast takes heights from 245 m on
    write_lines(LARGE / f"{name}.nod", [a.ravel() for a in (east, north, height)], "%.2f")
    corner = (np.arange(side - 1)[:, None] * side + np.arange(side - 1)).ravel()
    lower = np.column_stack([corner, corner + 1, corner + side])
    upper = np.column_stack([corner + 1, corner + side + 1, corner + side])
    np.savetxt(LARGE / f"{name}.tri", np.vstack([lower, upper]), fmt="%d", delimiter=",")


def write_raster(side):
    grid(side, 400 / side)[2].astype("<f4").tofile(LARGE / "dem.bin")
    text = f"{side}\n{side}\n{WEST}\n{SOUTH}\n{400 / side}\n-99\n\"c:\\data\\large\\dem.bin\"\n"
    (LARGE / "dem.hdr").write_text(text)


def enlarge_tiles(folder, record, pulses):
    for tile in folder.glob("*.bin"):
        bytes_of = np.fromfile(tile, dtype=np.uint8)
        records = bytes_of[4:].reshape(-1, record)
        if len(records) == 0 or len(records) >= pulses:
            continue
        times = pulses // len(records) + 1
        with open(tile, "wb") as file:
            np.array([times * len(records)], dtype="<i4").tofile(file)
            for _ in range(times):
                records.tofile(file)


def write_points(count):
    random = np.random.default_rng(7)
    east = WEST + random.uniform(10, 390, count)
    north = SOUTH + random.uniform(10, 390, count)
    height = random.uniform(160, 180, count)
    number = np.arange(1, count + 1)
    write_lines(LARGE / "points.txt", [east, north, height], "%.2f")
    (DATA / "vektorit").mkdir(exist_ok=True)
    write_lines(DATA / "vektorit/1926.txt", [east, north], "%.2f")
    write_lines(LARGE / "trees.txt", [east, north, number, number, height - 155, number, 0 * number + 1],
                ["%.2f", "%.2f", "%d", "%d", "%.2f", "%d", "%d"])
    write_lines(LARGE / "lines.txt", [number, east, north, east + 3, north + 2], ["%d"] + ["%.2f"] * 4)
    write_lines(SITE / "d/Regression_results.txt", [number, east, north, 0 * east + 3] + [0 * east] * 4,
                ["%d", "%.2f", "%.2f"] + ["%.2f"] * 5)
    for name, trees in (("plot", count), ("evaluated", 30_000)):  # tree numbers have 16 bits there
        with open(LARGE / f"{name}.txt", "w") as file:
            file.write(f"0,{WEST},{SOUTH},150,0,0,0\n")
            for k in range(trees):
                file.write(f"{east[k] - WEST:.2f},{north[k] - SOUTH:.2f},5,{150 + k % 200},{15 + k % 10},{k + 1},{k % 3 + 1},1\n")
    with open(DATA / "Lehtomaa/Pistedata/PointData.txt", "w") as file:
        for k in range(count):
            file.write(f"{k % 30000},{east[k]:.2f},{north[k]:.2f},{height[k]:.2f},155.00,3.20,1,0,0,{30 * ' '},\n")
    with open(DATA / "imageobs.txt", "w") as file:
        for k in range(count):
            file.write(f"{1204 + k % 3} {k} {10600 + k % 6000} {3000 + k % 4000}\n")


def repeat_lines(path, times, to=None):
    text = path.read_text()
    (to or path).write_text(text * times)


def add_cameras_far_away(path, times, item):
    """As a whole archive has them: few of them see the point. item: 6 for X, 8 for Z."""
    rows = [line.split(",") for line in path.read_text().splitlines()]
    with open(path, "a") as file:
        for k in range(1, times):
            for row in rows:
                file.write(",".join(row[:item] + [f"{float(row[item]) + 5000 * k:.1f}"] + row[item + 1:]) + "\n")


def load(photos=PHOTOS, model="c:\\data\\large\\dem.hdr"):
    text = "".join(f"file c:\\data\\demo\\{name}.hdr\nmenu Add_images_to_set\n" for name in photos)
    return text + f"file {model}\ninput 0.00\nmenu Add_height_Model\n" + solution(*MIDDLE, 174.77)


def solution(east, north, height):
    return f"input {east}\ninput {north}\ninput {height}\nmenu Set_3D_solution\nmenu Center_to_xyz_click\n"


def answers(*values):
    return "".join(f"input {value}\n" for value in values)


def scripts():
    tin = "file c:\\data\\large\\tin.nod\nfile c:\\data\\large\\tin.tri\n"
    yield "images", load() + "".join(f"menu {zoom}\n" for zoom in (
        "Zoom1_10", "Zoom_1_1", "Zoom4_1")) + "menu Center_To_Sub_c_click\nmenu Center_to_xyz_click\n"
    yield "start", (  # what bench_desktop_start begins with
        load(model="c:\\data\\demo\\dem.hdr")
        + "file c:\\data\\large\\start.nod\nfile c:\\data\\large\\start.tri\nmenu Add_Tin\n"
        + "menu Print_ALS_near_solution\n")
    yield "heights", (
        load(PHOTOS[:6]) + tin + "menu Add_Tin\n" + tin + "menu Add_Tin_CHM\n"
        "file c:\\data\\large\\dem.hdr\nmenu Add_Raster_CHM\n"
        "menu Get_TIN_elevation\nmenu Get_TIN_DTM_Opt\nmenu Get_TIN_CHM_Elev\nmenu Test_DEM\n"
        "file c:\\data\\large\\points.txt\nmenu Get_Raster_and_TIN_Residuals\ncommand Get_TIN_for_Points\n"
        "menu TIN2RASTER_Fast\nbutton yes\ncommand Create_raster_DEM_from_TIN_DEM\n"
        "button yes\ncommand Create_raster_CHM_from_TIN_CHM\n")
    yield "lidar", (
        load(PHOTOS[:6]) + "menu plot_als_bin_file\nmenu Print_ALS_near_solution\nmenu Clear_ima\n"
        "menu Plot_ALS_2007\nmenu Clear_ima\nmenu Plot_Lidar_pdf\nmenu Print_ALS_in_ASCII\n"
        "menu Make_Lidar_Intensity_Map\n" + answers(2515050, 6860250, 200, 200, 0.05)
        + "command Create_CHM_from_ALS\n")
    yield "overlays", (
        load(PHOTOS[:6]) + "menu Plot_Point_Set\n"
        "menu Clear_ima\nfile c:\\data\\large\\lines.txt\nmenu Plot_3D_line_segments\nmenu Clear_ima\n"
        "file c:\\data\\large\\trees.txt\nmenu Plot_Field_measured_tree_data\nmenu Clear_ima\n"
        "file c:\\data\\large\\plot.txt\nmenu Plot_Field_Plot_Data\nmenu Clear_ima\n"
        "command Plot_Crown_polygons\nmenu Clear_ima\nmenu Plot_Tie_Points\nmenu Clear_ima\n"
        "file c:\\data\\large\\plot.txt\nfile c:\\data\\large\\plot.bin\ncommand ConvertFieldDataToBinary\n")
    yield "searches", (
        load(PHOTOS[:1]) + "menu Find_Images_With_XYZ_Sol\n" + solution(2515157.54, 6860149.87, 156.76)
        + "menu Find_And_Read_Terr_Images_in_Which\ncommand Compute_Points_From_Pairs\n"
        "menu Compute_initial_apprx\n")
    yield "crowns", (
        load(PHOTOS[:6]) + "set Check2(0) 0\nset Check2(1) 1\nmenu Match_Local_Crown\n"
        "menu Crown_Intersection_For_LiDAR\nset Check2(1) 0\nbutton yes\n"
        "command Image_Lidar_Allometry_Algorithm\n")
    products = load(PHOTOS[6:])
    yield "products", (
        products + answers(1, 2515010, 6860010, 280, 280, 0.028, 160, "c:\\data\\large\\o.raw") + "menu Orto\n"
        + answers(2515010, 6860010, 280, 280, 0.028, "c:\\data\\large\\b.raw") + "menu OrthoBlock\n"
        + answers(900, 0.25, 1) + "menu Create_An_OrthoIndex\nfile c:\\data\\large\\zones.txt\n"
        "command Create_Zonal\nfile c:\\data\\large\\cuts.txt\nmenu Write_SUB_images\n"
        "input 20\nbutton ok\ninput c:\\data\\large\\\ninput c:\\data\\large\\PAIR.TXT\nmenu Create_anaglyph_pair\n"
        "menu Open_Stereo_window\nfile c:\\data\\large\\PAIR.TXT\nmenu Form5.Open_Pair\n")
    match = (SITE / "sessions/match.txt").read_text().replace("menu Add_Raster_CHM", "menu Add_Raster_CHM\nset Text4 24\nset Text3 0.25\nset Text10 0.2")
    evaluate = (
        "file c:\\data\\large\\evaluated.txt\nfile c:\\data\\large\\evaluated.bin\ncommand ConvertFieldDataToBinary\n"
        "menu Show_Results_Window\nfile c:\\data\\large\\evaluated.bin\nmenu Form6.Load_Reference_Trees\n"
        "press Form6.Show_Results\n")
    yield "match", match + evaluate
    for name in ("heath_pair", "heath_triplet", "canopy_triplet"):
        yield name, (SITE / f"sessions/{name}.txt").read_text()


def main():
    LARGE.mkdir(exist_ok=True)
    REACH.mkdir(exist_ok=True)
    write_tin("tin", 1001)  # two million triangles
    write_tin("start", 388)  # 300,000
    write_raster(8000)
    write_points(100_000)
    for folder, record in (("laser2006", 207), ("laser2007", 207), ("laser2004", 100)):
        enlarge_tiles(DATA / folder, record, 500_000)
    for tile in (DATA / "laser2004").glob("*.bin"):
        shutil.copy(tile, SITE / "d/data/laser")
    add_cameras_far_away(DATA / "cam_data_j.csv", 3000, 6)
    add_cameras_far_away(DATA / "cam_data_G6_j.csv", 300, 8)
    repeat_lines(DATA / "Cam_Data_j_533.csv", 100, DATA / "Cam_Data_j_900.csv")
    repeat_lines(SITE / "d/Stereo_parit.csv", 40)
    repeat_lines(SITE / "f/lines.txt", 500)
    repeat_lines(DATA / "exotics/Exotics.csv", 4)
    zones = "".join(f"{WEST + 20 + 3.6 * (k % 100)},{SOUTH + 20 + 36 * (k // 100)},155,{k % 250},20\n"
                    for k in range(1000))
    (LARGE / "zones.txt").write_text(zones)
    (LARGE / "cuts.txt").write_text(f"{MIDDLE[0]},{MIDDLE[1]},155,140,140,whole\n" * 2)
    for name, text in scripts():
        (REACH / f"{name}.txt").write_text(text)


main()
