#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Waits until the program of a window has been through all events that it was sent before: it is asked whether it is
alive, as window managers ask, and answers from its event loop. Reads lines WINDOW SECONDS, and answers each with
"settled" or, when the program does not answer in time, "silent". A window that has gone has settled."""
import ctypes
import select
import sys
import time

CLIENT_MESSAGE = 33
# Which of the two an answer is sent under differs from program to program.
STRUCTURE_NOTIFY = 1 << 17
SUBSTRUCTURE_NOTIFY = 1 << 19
# What an event leads to is done in the turn of the loop after it, and painted in the next.
ROUNDS = 3


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong),
                ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5), ("padding", ctypes.c_long * 24)]


ErrorHandler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)


class Asker:
    def __init__(self):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x.XInternAtom.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(None))
        if not self.display:
            sys.exit("no display")
        self.window = 0
        self.number = 0
        self.root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        self.protocols = self.x.XInternAtom(self.display, b"WM_PROTOCOLS", 0)
        self.ping = self.x.XInternAtom(self.display, b"_NET_WM_PING", 0)
        self.is_gone = False
        self.on_error = ErrorHandler(self.note_error)
        self.x.XSetErrorHandler(self.on_error)
        self.x.XSelectInput(self.display, self.root,
                            ctypes.c_long(STRUCTURE_NOTIFY | SUBSTRUCTURE_NOTIFY))

    def note_error(self, _display, _error):
        self.is_gone = True
        return 0

    def ask(self):
        event = ClientMessage(type=CLIENT_MESSAGE, window=self.window,
                              message_type=self.protocols, format=32)
        event.data[0], event.data[1], event.data[2] = self.ping, self.number, self.window
        self.x.XSendEvent(self.display, ctypes.c_ulong(self.window), 0, ctypes.c_long(0),
                          ctypes.byref(event))
        self.x.XSync(self.display, 0)

    def is_answered(self):
        event = ClientMessage()
        while self.x.XPending(self.display):
            self.x.XNextEvent(self.display, ctypes.byref(event))
            if (event.type == CLIENT_MESSAGE and event.window == self.root.value
                    and event.data[0] == self.ping and event.data[1] == self.number
                    and event.data[2] == self.window):
                return True
        return False

    def is_settled(self, window, seconds):
        end = time.monotonic() + seconds
        self.window = window
        self.is_gone = False
        for _ in range(ROUNDS):
            self.number += 1
            self.ask()
            while not self.is_gone and not self.is_answered():
                # One that had no window yet when it was asked never answers: ask again from time to time.
                if not select.select([self.x.XConnectionNumber(self.display)], [], [], 0.5)[0]:
                    self.ask()
                if time.monotonic() > end:
                    return False
        return True


def main():
    asker = Asker()
    for line in sys.stdin:
        window, seconds = line.split()
        answer = "settled" if asker.is_settled(int(window), float(seconds)) else "silent"
        print(answer, flush=True)


if __name__ == "__main__":
    main()
