#!/usr/bin/env python3
"""Makes the installer that a Windows Mobile 5 Smartphone opens, of a folder laid out as the phone will have it.

    make_cab.py FOLDER PROGRAM.cab

The folder's own folders are called by what the installer knows the phone's by: %CE1% is \\Program Files, %CE2% is
\\Windows. The cabinet holds every file under a short name, and _setup.xml, which says what becomes of each. What is
installed so, the phone removes by itself.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

NAME = 'Tarvik File Manager'
PROGRAM_FOLDER = f'%CE1%\\{NAME}'
PROGRAM = '%InstallDir%\\TarvikFileManager.exe'
START_MENU = '%CE17%'  # \Windows\Start Menu, whose entries a Smartphone lists
ANY_BUILD = -0x20000000  # 0xE0000000, as the installer reads numbers


def characteristic(above, kind, on_phone=False):
    made = xml.SubElement(above, 'characteristic', type=kind)
    if on_phone:
        made.set('translation', 'install')
    return made


def parameter(above, name, value, on_phone=False):
    made = xml.SubElement(above, 'parm', name=name, value=str(value))
    if on_phone:
        made.set('translation', 'install')


def read_folders(top):
    """What goes where: {folder on the phone: [(name, file here)]}."""
    folders = {}
    for folder, _, names in sorted(os.walk(top)):
        if names:
            on_phone = os.path.relpath(folder, top).replace('/', '\\')
            on_phone = on_phone.replace(PROGRAM_FOLDER, '%InstallDir%')
            folders[on_phone] = [(name, os.path.join(folder, name)) for name in sorted(names)]
    return folders


def short_names(folders):
    """The files' names in the cabinet: {file here: name}."""
    files = [file for names in folders.values() for _, file in names]
    return {file: f'FILE{number:04}.{number:03}' for number, file in enumerate(files, 1)}


def setup(folders, names):
    """What the phone is to do."""
    document = xml.Element('wap-provisioningdoc')
    install = characteristic(document, 'Install')
    parameter(install, 'InstallPhase', 'install')
    parameter(install, 'OSVersionMin', '5.0')
    parameter(install, 'OSVersionMax', '6.99')
    parameter(install, 'BuildNumberMin', 0)
    parameter(install, 'BuildNumberMax', ANY_BUILD)
    parameter(install, 'AppName', NAME)
    parameter(install, 'InstallDir', PROGRAM_FOLDER, on_phone=True)
    parameter(install, 'NumDirs', len(folders))
    parameter(install, 'NumFiles', len(names))
    parameter(install, 'NumRegKeys', 0)
    parameter(install, 'NumRegVals', 0)
    parameter(install, 'NumShortcuts', 1)

    operations = characteristic(document, 'FileOperation')
    for folder, files in folders.items():
        place = characteristic(operations, folder, on_phone=True)
        characteristic(place, 'MakeDir')
        for name, file in files:
            extract = characteristic(characteristic(place, name, on_phone=True), 'Extract')
            parameter(extract, 'Source', names[file])
    menu = characteristic(operations, START_MENU, on_phone=True)
    characteristic(menu, 'MakeDir')
    shortcut = characteristic(characteristic(menu, f'{NAME}.lnk', on_phone=True), 'Shortcut')
    parameter(shortcut, 'Source', PROGRAM, on_phone=True)
    xml.indent(document)
    return xml.tostring(document, encoding='unicode') + '\n'


def main(top, cabinet):
    folders = read_folders(top)
    names = short_names(folders)
    time = int(os.environ.get('SOURCE_DATE_EPOCH', 0))
    with tempfile.TemporaryDirectory() as work:
        with open(os.path.join(work, '_setup.xml'), 'w', encoding='utf-8') as file:
            file.write(setup(folders, names))
        for file, name in names.items():
            shutil.copyfile(file, os.path.join(work, name))
        packed = ['_setup.xml', *names.values()]
        for name in packed:
            os.utime(os.path.join(work, name), (time, time))
        subprocess.run(['gcab', '--create', '--zip', '--nopath', os.path.abspath(cabinet), *packed], cwd=work, check=True)


if __name__ == '__main__':
    main(*sys.argv[1:])
