# SPDX-License-Identifier: MIT
"""Documents that want other files read, the network called or the memory filled: hostile_documents_test.py PROGRAM"""
import resource
import socket
import subprocess
import sys
import unittest

import xlrd

from made_timelines import clip_item, document, sequence, timeline, track
from report_runs import ReportRuns

PROGRAM = sys.argv.pop(1)
SECRET = "the combination is 7154"
SECONDS = 20
MEGABYTES = 400


class HostileDocuments(ReportRuns):
    program = PROGRAM

    def setUp(self):
        super().setUp()
        self.secret = self.folder / "secret.txt"
        self.secret.write_text(SECRET)
        self.port = socket.create_server(("127.0.0.1", 0))
        self.port.setblocking(False)
        self.addCleanup(self.port.close)
        self.url = f"http://127.0.0.1:{self.port.getsockname()[1]}/x"

    def run_on(self, text, *options):
        """Runs within bounds of time and memory; the exit code, and what it says on standard error."""
        run = subprocess.run(self.command(text, *options), env=self.environment(), capture_output=True,
                             timeout=SECONDS, errors="replace")
        self.assertIn(run.returncode, (0, 1), run.stderr)
        told = run.stdout + run.stderr
        if self.workbook.exists():
            written = self.workbook.read_bytes()
            told += written.decode("latin-1") + written.decode("utf-16le", "replace")
            told += written[1:].decode("utf-16le", "replace")
        self.assertNotIn(SECRET, told)
        with self.assertRaises(BlockingIOError, msg="the network was called"):
            self.port.accept()
        if not self.is_sanitized():
            self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024, MEGABYTES)
        return run.returncode, run.stderr

    def assert_refused(self, text, sentence):
        code, error = self.run_on(text)
        self.assertEqual(code, 1)
        self.assertIn(sentence, error)
        self.assertFalse(self.workbook.exists())

    def clip_named(self, name, before="", rest=""):
        return document(sequence(track([clip_item(name, "/media/1.mov", 0, 0, rest=rest)])), before)

    def test_nothing_outside_of_the_document_is_read(self):
        for place in (self.secret.as_uri(), str(self.secret), "secret.txt", self.url, self.url.replace("http", "ftp")):
            for kind in ("SYSTEM", "PUBLIC '-//x//y'"):
                for text in (
                        self.clip_named("A", f"<!DOCTYPE xmeml {kind} '{place}'>"),
                        self.clip_named("A&e;", f"<!DOCTYPE xmeml {kind} '{place}'>"),
                        self.clip_named("A&e;", f"<!DOCTYPE xmeml [<!ENTITY e {kind} '{place}'>]>"),
                        self.clip_named("A", f"<!DOCTYPE xmeml [<!ENTITY % p {kind} '{place}'>%p;]>"),
                        self.clip_named("A&e;", f"<!DOCTYPE xmeml [<!ENTITY % p {kind} '{place}'>"
                                                "<!ENTITY e '%p;'>]>"),
                        self.clip_named("A&#1;&e;", f"<!DOCTYPE xmeml [<!ENTITY e {kind} '{place}'>]>")):
                    with self.subTest(text=text[:200]):
                        self.run_on(text)

    def test_nothing_is_included(self):
        for place in (self.secret, self.url):
            include = f"<x:include xmlns:x='http://www.w3.org/2001/XInclude' parse='text' href='{place}'/>"
            with self.subTest(include=include):
                self.run_on(self.clip_named("A" + include, f"<?xml-stylesheet href='{place}'?>", rest=include))
                self.assertEqual(xlrd.open_workbook(self.workbook).sheet_by_index(0).nrows, 2)

    def test_media_are_not_fetched(self):
        addresses = [self.url + ".mov", self.url.replace("http", "ftp"), "concat:" + self.url, "subfile,,:" + self.url]
        clips = "".join(f"<clipitem><name>A</name><duration>9</duration><in>0</in><out>9</out>"
                        f"<start>{9 * i}</start><end>{9 * i + 9}</end><file id='{i}'><duration>9</duration>"
                        f"<pathurl>{address}</pathurl></file></clipitem>" for i, address in enumerate(addresses))
        for tracks in ({"video": track([clips])}, {"audio": track([clips])}):
            code, error = self.run_on(document(sequence(**tracks)), "--thumbnails")
            self.assertEqual(code, 0, error)

    def test_a_media_file_that_lists_others_is_not_followed(self):
        film = self.folder / "film.mov"
        for content in (f"#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\n{self.url}\n#EXT-X-ENDLIST\n",
                        f"ffconcat version 1.0\nfile '{self.url}'\n",
                        f"ffconcat version 1.0\nfile '{self.secret}'\n",
                        f"v=0\no=- 0 0 IN IP4 127.0.0.1\nc=IN IP4 127.0.0.1\nm=video {self.url.split(':')[2][:-2]} "
                        "RTP/AVP/TCP 96\n"):
            film.write_text(content)
            code, error = self.run_on(timeline([("A", film, 0)], [("A", film, 0)]), "--thumbnails")
            self.assertEqual(code, 0, error)

    def test_entities_do_not_multiply(self):
        levels = "".join(f"<!ENTITY e{level} '{f'&e{level - 1};' * 10}'>" for level in range(1, 13))
        laughs = f"<!DOCTYPE xmeml [<!ENTITY e0 'ha'>{levels}]>"
        self.assert_refused(self.clip_named("&e12;", laughs), "This XML file is incomplete or broken")
        quadratic = f"<!DOCTYPE xmeml [<!ENTITY e '{'x' * 90_000}'>]>"
        for text in (self.clip_named("&e;" * 20_000, quadratic),
                     self.clip_named("A", quadratic, "<lognote>&e;</lognote>" * 20_000)):
            self.assert_refused(text, "entities that stand for more than 10 million characters")

    def test_deep_nesting_is_refused(self):
        for opening in ("<bin><children>", "<clipitem><sequence><media><video><track>"):
            self.assert_refused(document(opening * 50_000), "nests elements more than 256 deep")

    def test_attributes_in_masses_are_refused(self):
        attributes = "".join(f" a{i}=''" for i in range(200_000))
        for encoding in ("UTF-8", "UTF-16", "UTF-7", "cp037"):
            with self.subTest(encoding=encoding):
                text = document(f"<sequence{attributes}/>").replace("UTF-8", encoding, 1)
                self.document.write_bytes(text.encode(encoding))
                self.assert_refused(None, "more than 1,000 attributes")

    def test_namespaces_in_masses_are_refused(self):
        outer = "".join("<a" + "".join(f" xmlns:p{depth}x{i}='u'" for i in range(100)) + ">" for depth in range(200))
        self.assert_refused(document(outer + "<p0x0:b/>" * 60_000 + "</a>" * 200), "more than 100 namespaces")


if __name__ == "__main__":
    unittest.main()
