@echo off
rem Installs Pellora for the user who runs this. Asks nothing, needs no administrator.
rem Ends with 0 when it is installed, 1 when that failed, 2 when Excel is running.
rem The window stays for a while when a double-click has opened it; /quiet leaves that out.
setlocal
set "home=%LOCALAPPDATA%\Pellora"
set "here=%~dp0"

rem The system's own tools, also when a 32-bit program runs this on a 64-bit system.
set "native=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "native=%SystemRoot%\Sysnative"
set "wide="
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" set "wide=yes"
if /i "%PROCESSOR_ARCHITEW6432%"=="AMD64" set "wide=yes"
set "narrow=%SystemRoot%\SysWOW64"
if not exist "%narrow%\regsvr32.exe" set "narrow="
if not defined wide if not defined narrow set "narrow=%native%"

rem The Excel of somebody else who is logged on does not matter: it has an installation of its own.
set "whose=username eq %USERDOMAIN%\%USERNAME%"
"%native%\tasklist.exe" /nh /fi "imagename eq EXCEL.EXE" /fi "%whose%" >"%TEMP%\Pellora-running.txt" 2>nul
set "running="
for /f "usebackq" %%w in ("%TEMP%\Pellora-running.txt") do if /i "%%w"=="EXCEL.EXE" set "running=yes"
if defined running goto running
del "%TEMP%\Pellora-running.txt" 2>nul

rem All or nothing: what is installed already is not touched before everything is known to be at hand.
set "missing="
for %%f in (win64\Pellora.dll win32\Pellora.dll uninstall.cmd check.cmd check.vbs) do (
  if not exist "%here%%%f" set "missing=%%f"
)
if defined missing goto incomplete
if not exist "%home%\win64" mkdir "%home%\win64"
if not exist "%home%\win32" mkdir "%home%\win32"
set "failed="
for %%f in (win64\Pellora.dll win32\Pellora.dll uninstall.cmd check.cmd check.vbs) do call :bring "%%f"
if defined failed goto nocopy

set "why=%TEMP%\Pellora-why.txt"
del "%why%" 2>nul
set "bits=64-bit"
if defined wide "%native%\regsvr32.exe" /s /n /i:"user,%why%" "%home%\win64\Pellora.dll"
if defined wide if errorlevel 1 goto noregister
set "bits=32-bit"
if defined narrow "%narrow%\regsvr32.exe" /s /n /i:"user,%why%" "%home%\win32\Pellora.dll"
if defined narrow if errorlevel 1 goto noregister

echo Pellora is installed for you, in %home%
echo Workbooks that are opened from now on can use it. Run check.cmd to see that it works.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 0

:bring
copy /y "%here%%~1" "%home%\%~1" >nul
if errorlevel 1 set "failed=%~1"
exit /b 0

:running
del "%TEMP%\Pellora-running.txt" 2>nul
echo Excel is running, and nothing was changed. Save your work, close Excel, and run install.cmd again.
echo If no window of Excel is open, end "Microsoft Excel" in the Task Manager.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 2

:incomplete
echo %missing% is not beside install.cmd, and nothing was changed.
echo Extract the whole archive first, then run install.cmd again.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 1

:nocopy
echo The files could not all be copied to %home% (%failed%)
echo Close all programs that use Pellora, and run install.cmd again.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 1

:noregister
echo The %bits% library could not be registered. What was registered is taken back, an earlier version's too.
if exist "%why%" type "%why%"
del "%why%" 2>nul
if defined wide "%native%\regsvr32.exe" /s /u /n /i:user "%home%\win64\Pellora.dll"
if defined narrow "%narrow%\regsvr32.exe" /s /u /n /i:user "%home%\win32\Pellora.dll"
echo Ask your administrator whether programs may be registered for a user on this machine.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 1
