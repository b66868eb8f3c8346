@echo off
rem Removes Pellora for the user who runs this. Asks nothing, needs no administrator.
rem Ends with 0 when it is removed, 1 when that failed, 2 when Excel is running.
rem The window stays for a while when a double-click has opened it; /quiet leaves that out.
setlocal
set "home=%LOCALAPPDATA%\Pellora"
set "here=%~dp0"
set "class=CLSID\{E6F41B9B-E88E-46C2-92C4-54BC6EC07D61}"

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

rem Folders in which nothing is are not an installation.
for %%d in ("%home%\win64" "%home%\win32" "%home%") do rmdir %%d 2>nul
set "there="
if exist "%home%" set "there=yes"
if defined wide call :look "%native%"
if defined narrow call :look "%narrow%"
if not defined there goto nothing

set "why=%TEMP%\Pellora-why.txt"
del "%why%" 2>nul
set "failed="
if defined wide call :remove "%native%" win64
if defined narrow call :remove "%narrow%" win32
if defined failed goto noremove

rem This file's own folder goes last; the libraries' folders stay while a program uses them.
rmdir /s /q "%home%\win64" 2>nul
rmdir /s /q "%home%\win32" 2>nul
if exist "%home%\win64" goto inuse
if exist "%home%\win32" goto inuse
echo Pellora is removed. Your lists and window positions are kept; uninstalling does not touch them.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
rem Nothing can be read from this file after the next line, if it is the installed one.
cd /d "%TEMP%" & rmdir /s /q "%home%" 2>nul & exit /b 0

rem :look TOOLS: whether that bitness has the class, or a name for it.
:look
for %%k in ("%class%" Pellora.cPellora) do call :find "%~1" %%k
exit /b 0
:find
"%~1\reg.exe" query "HKCU\Software\Classes\%~2" >nul 2>nul
if not errorlevel 1 set "there=yes"
exit /b 0

rem :remove TOOLS BITNESS: takes that bitness out of the registry by its library: the installed one, or the one beside
rem this file. Where both are gone, or it does not come to its end, key by key.
:remove
set "library=%home%\%~2\Pellora.dll"
if not exist "%library%" set "library=%here%%~2\Pellora.dll"
if not exist "%library%" goto keybykey
"%~1\regsvr32.exe" /s /u /n /i:"user,%why%" "%library%"
if not errorlevel 1 exit /b 0
:keybykey
call :forget "%~1" "%class%"
call :forget "%~1" "Interface\{D5C30E2C-C1A0-4C1C-AAA4-39D9A7DD5ADA}"
call :forget "%~1" "TypeLib\{2EABE3A4-0BFF-4B7F-8DDF-75618E559BE8}"
call :forget "%~1" Pellora.cPellora
call :forget "%~1" Pellora.cPellora.1
exit /b 0
:forget
"%~1\reg.exe" delete "HKCU\Software\Classes\%~2" /f >nul 2>nul
"%~1\reg.exe" query "HKCU\Software\Classes\%~2" >nul 2>nul
if errorlevel 1 exit /b 0
set "failed=yes"
echo A key could not be deleted (Software\Classes\%~2)>>"%why%"
exit /b 0

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
if exist "%why%" type "%why%"
del "%why%" 2>nul
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 1

:inuse
echo Pellora is taken out of the registry, but a program still uses its files in %home%
echo Close all programs that use Pellora, and run uninstall.cmd again.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b 1
