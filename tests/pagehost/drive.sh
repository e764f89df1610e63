#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
exit 77
