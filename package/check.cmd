@echo off
rem Says for each kind of Excel that this system can run whether its macros find Pellora.
rem Ends with 0 when all of them do, 1 when one does not, 3 when that cannot be found out on this computer.
rem The window stays for a while when a double-click has opened it; /quiet leaves that out.
setlocal
set "native=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "native=%SystemRoot%\Sysnative"
set "wide="
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" set "wide=yes"
if /i "%PROCESSOR_ARCHITEW6432%"=="AMD64" set "wide=yes"
set "narrow=%SystemRoot%\SysWOW64"
if not exist "%narrow%\regsvr32.exe" set "narrow="
if not defined wide if not defined narrow set "narrow=%native%"

set "here=%~dp0"
set "bad=0"
if defined wide call :ask "%native%" 64-bit
if defined narrow call :ask "%narrow%" 32-bit
if not defined narrow echo 32-bit: this system runs no 32-bit programs.
if not defined wide echo 64-bit: this system runs no 64-bit programs.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b %bad%

rem :ask TOOLS KIND: the script that asks has to be of Excel's kind. It answers to "engine" with 42 and nothing else, so
rem that a computer that runs no such scripts is told from one on which something is wrong.
:ask
"%~1\cscript.exe" //nologo "%here%check.vbs" engine >nul 2>nul
if not "%errorlevel%"=="42" goto noscripts
"%~1\cscript.exe" //nologo "%here%check.vbs" %2
if errorlevel 1 set "bad=1"
exit /b 0
:noscripts
echo %2: not checked, because this computer does not run VBScript: it is not installed, or switched off. Pellora itself
echo does not need it. Run a macro of your workbook to see whether the dialogs come up, or ask your administrator.
if "%bad%"=="0" set "bad=3"
exit /b 0
