# SPDX-License-Identifier: MIT
"""Reports to disks that fail: saving_faults_test.py PROGRAM FAILING_DISK

Whatever goes wrong, the older workbook stays as it was, nothing else is left, and the program says why.
"""
import errno
import os
import shutil
import subprocess
import sys
import unittest

import xlrd

from made_timelines import timeline
from report_runs import ReportRuns, names_in

PROGRAM, FAILING_DISK = sys.argv[1:3]
OLD = b"the older workbook"
NOBODY = 65534

FULL = "the disk is full. Make room on it or choose another disk."
REFUSED = "its folder does not allow new files. Choose another folder."
BROKEN = "Input/output error."
FAULTS = [
    ("open", errno.EACCES, REFUSED),
    ("open", errno.EROFS, "its disk is write-protected. Choose another folder."),
    ("open", errno.ENOSPC, FULL),
    ("open", errno.EMFILE, "Too many open files."),
    ("fwrite", errno.ENOSPC, FULL),
    ("fwrite", errno.EDQUOT, FULL),
    ("fwrite", errno.EFBIG, "it would be larger than files may be there. Choose another disk."),
    ("fwrite", errno.EIO, BROKEN),
    ("fflush", errno.ENOSPC, FULL),
    ("fsync", errno.EIO, BROKEN),
    ("fsync", errno.ENOSPC, FULL),
    ("fclose", errno.EDQUOT, FULL),
    ("fclose", errno.EIO, BROKEN),
    ("rename to", errno.EACCES, REFUSED),
    ("rename to", errno.EIO, BROKEN),
]


def mounts_are_allowed():
    return subprocess.run(["unshare", "--map-root-user", "--mount", "true"], capture_output=True).returncode == 0


class SavingFaults(ReportRuns):
    program = PROGRAM
    cut = timeline([(f"Clip {i}", f"/media/{i}.mov", i) for i in range(200)])
    short_cut = timeline([(f"Clip {i}", f"/media/{i}.mov", i) for i in range(5)])

    def setUp(self):
        super().setUp()
        self.workbook.write_bytes(OLD)

    def with_fault(self, call, *options, room=0, **more):
        disk = {"DISK_FAULT": call, "DISK_NAME": ".xls", "DISK_ROOM": str(room), **more}
        return self.report(self.short_cut if options else self.cut, *options, LD_PRELOAD=FAILING_DISK,
                           ASAN_OPTIONS="verify_asan_link_order=0", **disk)

    def assert_refused(self, run, reason):
        self.assertEqual(run.stderr.splitlines(),
                         [f'tallyframe: The workbook "{self.workbook}" was not saved: {reason}'])
        self.assertEqual(self.workbook.read_bytes(), OLD)
        self.assertEqual(names_in(self.desk), ["Reel 1.xls"])

    def test_each_step_of_saving_may_fail(self):
        for options in ([], ["--thumbnails"], ["--thumbnails", "--keep-thumbnails"]):
            for call, number, reason in FAULTS:
                with self.subTest(call=call, error=errno.errorcode[number], options=options):
                    run = self.with_fault(call, *options, DISK_ERRNO=str(number), code=1)
                    self.assert_refused(run, reason)

    def test_the_disk_may_fill_up_at_any_byte(self):
        self.report(self.cut)
        size = self.workbook.stat().st_size
        self.workbook.write_bytes(OLD)
        for room in [0, 1, 511, 512, *range(4096, size, size // 20), size - 1]:
            with self.subTest(room=room):
                self.assert_refused(
                    self.with_fault("fwrite", room=room, DISK_ERRNO=str(errno.ENOSPC), code=1), FULL)

    def test_a_disk_without_fault_takes_the_workbook(self):
        self.with_fault("none")
        self.assertEqual(xlrd.open_workbook(self.workbook).sheet_by_index(0).nrows, 201)

    def test_a_disk_that_cannot_be_told_to_write_takes_it_too(self):
        self.with_fault("fsync", DISK_ERRNO=str(errno.EINVAL))
        self.assertEqual(xlrd.open_workbook(self.workbook).sheet_by_index(0).nrows, 201)

    def test_the_file_is_on_the_disk_before_its_name_and_both_before_the_end(self):
        log = self.folder / "log"
        log.touch()
        self.with_fault("none", DISK_LOG=str(log))
        self.assertEqual(log.read_text().splitlines(), ["fsync file", "rename", "fsync folder"])

    def test_a_folder_that_cannot_be_told_to_write_takes_nothing_back(self):
        run = self.with_fault("fsync of folder", DISK_ERRNO=str(errno.EIO))
        self.assertEqual(run.stderr, f"Wrote {self.workbook}\n")
        self.assertEqual(xlrd.open_workbook(self.workbook).sheet_by_index(0).nrows, 201)

    def test_the_folder_may_vanish_meanwhile(self):
        run = self.with_fault("vanish", DISK_FOLDER=str(self.desk), code=1)
        self.assertIn("its folder does not exist. Choose another folder.", run.stderr)
        self.assertFalse(self.desk.exists())
        gone = self.folder / "desk.gone"
        self.assertEqual((gone / "Reel 1.xls").read_bytes(), OLD)

    def test_a_small_disk(self):
        if not mounts_are_allowed():
            self.skipTest("this machine lets nobody mount a small disk")
        on_small_disk = ('mount -t tmpfs -o size=64k none "$1" && cp "$2" "$1/Reel 1.xls" && shift 2 && "$@"; '
                         'code=$?; cd "$(dirname "$0")" && cat "Reel 1.xls" && ls -A; exit $code')
        old = self.folder / "old.xls"
        old.write_bytes(OLD)
        run = subprocess.run(["unshare", "--map-root-user", "--mount", "sh", "-c", on_small_disk, self.workbook,
                              self.desk, old, *self.command(self.cut, "--quiet")],
                             env=self.environment(), capture_output=True, text=True)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertEqual(run.stdout, OLD.decode() + "Reel 1.xls\n")
        self.assert_refused(run, FULL)

    def test_no_room_for_pictures_costs_only_them(self):
        if not mounts_are_allowed():
            self.skipTest("this machine lets nobody mount a small disk")
        on_small_disk = ('mount -t tmpfs -o size=8k none "$TMPDIR" && "$0" "$@"; '
                         'code=$?; ls -A "$TMPDIR"; exit $code')
        run = subprocess.run(["unshare", "--map-root-user", "--mount", "sh", "-c", on_small_disk,
                              *self.command(self.short_cut, "--thumbnails", "--quiet")],
                             env=self.environment(), capture_output=True, text=True)
        self.assertEqual((run.returncode, run.stdout), (0, ""), run.stderr)
        self.assertEqual(xlrd.open_workbook(self.workbook).sheet_by_index(0).nrows, 6)

    def assert_not_kept(self, run, reason):
        self.assertEqual(run.stderr.splitlines(),
                         ["tallyframe: The report was not saved. Its thumbnails cannot be kept in "
                          f'"{self.desk}/Reel 1 thumbnails": {reason}'])
        self.assertEqual(self.workbook.read_bytes(), OLD)

    def older_pictures(self):
        place = self.desk / "Reel 1 thumbnails"
        place.mkdir()
        (place / "0003 Clip 1.jpg").write_bytes(OLD)
        return place

    def test_pictures_whose_place_is_a_file_leave_no_trace(self):
        (self.desk / "Reel 1 thumbnails").write_text("not a folder")
        run = self.report(self.short_cut, "--thumbnails", "--keep-thumbnails", code=1)
        self.assert_not_kept(run, "there is a file of this name. Move it, or choose another name for the workbook.")
        self.assertEqual(names_in(self.desk), ["Reel 1 thumbnails", "Reel 1.xls"])

    def test_pictures_that_a_folder_is_in_the_way_of_leave_no_trace(self):
        place = self.older_pictures()
        (place / "0005 Clip 3.jpg").mkdir()
        run = self.report(self.short_cut, "--thumbnails", "--keep-thumbnails", code=1)
        self.assert_not_kept(run, 'there is a folder "0005 Clip 3.jpg" in it. Move that, or choose another name for '
                                  'the workbook.')
        self.assertEqual(names_in(place), ["0003 Clip 1.jpg", "0005 Clip 3.jpg"])
        self.assertEqual((place / "0003 Clip 1.jpg").read_bytes(), OLD)

    def test_pictures_that_cannot_all_take_their_place_leave_no_trace(self):
        for place in (None, self.older_pictures):
            older = place and place()
            run = self.with_fault("rename to", "--thumbnails", "--keep-thumbnails", DISK_ERRNO=str(errno.EIO),
                                  DISK_NAME="thumbnails/0005 Clip 3.jpg", code=1)
            self.assert_not_kept(run, "Input/output error. Choose another name or folder for the workbook.")
            self.assertEqual(names_in(self.desk), [*(["Reel 1 thumbnails"] if older else []), "Reel 1.xls"])
        self.assertEqual(names_in(older), ["0003 Clip 1.jpg"])
        self.assertEqual((older / "0003 Clip 1.jpg").read_bytes(), OLD)

    def test_pictures_go_back_when_the_workbook_cannot_take_its_place(self):
        place = self.older_pictures()
        run = self.with_fault("rename to", "--thumbnails", "--keep-thumbnails", DISK_ERRNO=str(errno.EIO), code=1)
        self.assertEqual(run.stderr.splitlines(),
                         [f'tallyframe: The workbook "{self.workbook}" was not saved: {BROKEN}'])
        self.assertEqual(self.workbook.read_bytes(), OLD)
        self.assertEqual(names_in(place), ["0003 Clip 1.jpg"])
        self.assertEqual((place / "0003 Clip 1.jpg").read_bytes(), OLD)

    def test_no_picture_replaces_a_media_file(self):
        still = self.older_pictures() / "0003 Clip 1.jpg"
        cut = timeline([("Clip 0", "/none.mov", 0), ("Clip 1", "/none.mov", 0), ("Still", still, 0)])
        run = self.report(cut, "--thumbnails", "--keep-thumbnails", code=1)
        self.assert_not_kept(run, 'the file "0003 Clip 1.jpg" in it belongs to the timeline. Choose another name '
                                  'for the workbook.')
        self.assertEqual(still.read_bytes(), OLD)
        self.assertEqual(names_in(still.parent), ["0003 Clip 1.jpg"])

    def test_no_permission(self):
        program = self.folder / "tallyframe"
        shutil.copy(PROGRAM, program)
        self.folder.chmod(0o755)
        self.workbook.chmod(0o666)
        self.desk.chmod(0o555)
        self.temporary.chmod(0o777)
        command = self.command(self.cut)
        user = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}
        run = subprocess.run([program, *command[1:]], env=self.environment(), capture_output=True, text=True, **user)
        self.desk.chmod(0o755)
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assert_refused(run, REFUSED)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
