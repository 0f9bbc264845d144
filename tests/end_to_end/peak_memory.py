# SPDX-License-Identifier: MIT
"""Runs a program, notes its peak memory in bytes and exits as it does: peak_memory.py FILE PROGRAM [ARGUMENT ...]

A process of its own, for a new process begins with the peak of the one that starts it.
"""
import os
import sys
from pathlib import Path

_, status, usage = os.wait4(os.posix_spawn(sys.argv[2], sys.argv[2:], os.environ), 0)
Path(sys.argv[1]).write_text(str(usage.ru_maxrss * 1024))
sys.exit(os.waitstatus_to_exitcode(status))
