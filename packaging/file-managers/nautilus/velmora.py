# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Files (Nautilus) offers to burn a folder or a disc image with Velmora."""

import locale

from gi.repository import Gio, GObject, Nautilus

IMAGE_TYPES = {"application/x-cd-image", "application/vnd.efi.iso", "application/x-iso9660-image"}


def burn(_item, command):
    Gio.Subprocess.new(command, Gio.SubprocessFlags.NONE)


class BurnWithVelmora(GObject.GObject, Nautilus.MenuProvider):
    def get_file_items(self, *arguments):
        files = arguments[-1]  # older versions hand over the window before them
        path = files[0].get_location().get_path() if len(files) == 1 else None
        if not path:
            return []
        if files[0].is_directory():
            return [self._item(["velmora", path])]
        if files[0].get_mime_type() in IMAGE_TYPES:
            return [self._item(["velmora", "--burn-iso", path])]
        return []

    @staticmethod
    def _item(command):
        french = (locale.getlocale(locale.LC_MESSAGES)[0] or "").startswith("fr")
        label = "Graver sur un disque" if french else "Burn to a Disc"
        item = Nautilus.MenuItem(name="Velmora::Burn", label=label, icon="org.velmora.Velmora")
        item.connect("activate", burn, command)
        return item
