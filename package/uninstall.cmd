@echo off
rem Removes Pellora for the user who runs this. Asks nothing, needs no administrator.
rem Ends with 0 when it is removed, 1 when that failed, 2 when Excel is running.
rem The window stays for a while when a double-click has opened it; /quiet leaves that out.
setlocal
set "home=%LOCALAPPDATA%\Pellora"

set "native=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "native=%SystemRoot%\Sysnative"
set "wide="
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" set "wide=yes"
if /i "%PROCESSOR_ARCHITEW6432%"=="AMD64" set "wide=yes"
set "narrow=%SystemRoot%\SysWOW64"
if not exist "%narrow%\regsvr32.exe" set "narrow="
if not defined wide if not defined narrow set "narrow=%native%"

"%native%\tasklist.exe" /nh /fi "imagename eq EXCEL.EXE" >"%TEMP%\Pellora-running.txt" 2>nul
"%native%\find.exe" "EXCEL.EXE" <"%TEMP%\Pellora-running.txt" >nul 2>nul
if not errorlevel 1 goto running
del "%TEMP%\Pellora-running.txt" 2>nul

rem An installation that did not come to its end may have left folders alone.
if not exist "%home%\win64\Pellora.dll" rmdir /s /q "%home%" 2>nul
if not exist "%home%" goto nothing
set "failed="
if defined wide "%native%\regsvr32.exe" /s /u /n /i:user "%home%\win64\Pellora.dll"
if defined wide if errorlevel 1 set "failed=yes"
if defined narrow "%narrow%\regsvr32.exe" /s /u /n /i:user "%home%\win32\Pellora.dll"
if defined narrow if errorlevel 1 set "failed=yes"
if defined failed goto noremove

echo Pellora is removed. Your lists and window positions are kept; uninstalling does not touch them.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
rem This file may be in the folder itself: nothing can be read from it after this line.
cd /d "%TEMP%" & rmdir /s /q "%home%" & exit /b 0

:running
del "%TEMP%\Pellora-running.txt" 2>nul
echo Excel is running, and nothing was changed. Save your work, close Excel, and run uninstall.cmd again.
echo If no window of Excel is open, end "Microsoft Excel" in the Task Manager.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 2

:nothing
echo Pellora is not installed for you; there is nothing to remove.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 0

:noremove
echo Pellora could not be taken out of the registry. Its files stay in %home%
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 1
