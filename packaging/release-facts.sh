# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

# What every package says about the project. The version and the homepage are in CMakeLists.txt, and only there; a
# maintainer with another domain changes that line.
read_project() { sed -n "s/^project(velmora VERSION \([0-9.]*\) HOMEPAGE_URL \"\([^\"]*\)\".*/\\$1/p" CMakeLists.txt; }
version=$(read_project 1)
homepage=$(read_project 2)
maintainer="The Velmora developers <velmora@${homepage#https://}>"

# fill_in FILE... - puts these facts into files that name them as @VERSION@, @HOMEPAGE@ and @MAINTAINER@.
fill_in() {
    sed -i "s|@VERSION@|$version|g; s|@HOMEPAGE@|$homepage|g; s|@MAINTAINER@|$maintainer|g" "$@"
}
