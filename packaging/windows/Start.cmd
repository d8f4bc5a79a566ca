@echo off
rem Starts Tarvik File Manager on the folder "device", which has a drive letter as long as the program runs.
setlocal
set "device=%~dp0device"
set "program=Program Files\Tarvik File Manager\TarvikFileManager.exe"
set drive=

if not exist "%device%\%program%" (
    echo Unpack the whole archive first, and open Start.cmd there.
    pause
    exit /b 1
)
for %%d in (T U V W X Y Z S R Q P O N M) do call :lend %%d:
if not defined drive (
    echo There is no free drive letter from M to Z.
    pause
    exit /b 1
)
start "" /wait "%drive%\%program%" %*
subst %drive% /d
exit /b

rem Gives the folder this drive letter, unless it has one or the letter is taken.
:lend
if defined drive exit /b
if exist %1\ exit /b
subst %1 "%device%" >nul 2>nul && set "drive=%1"
exit /b
