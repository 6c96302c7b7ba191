@echo off
rem Lets "Open with" of .mdl files offer the corvane.exe in this folder, for this user alone.
rem forget-corvane.cmd takes it back.
setlocal
set "program=%~dp0corvane.exe"
if not exist "%program%" (
    echo corvane.exe is not in this folder. Unpack the whole zip first.
    pause
    exit /b 1
)
rem The name of a folder may hold what this language takes for its own.
setlocal EnableDelayedExpansion
set "classes=HKCU\Software\Classes"
reg add "%classes%\Corvane.Model" /ve /d "Warcraft III model" /f >nul
if errorlevel 1 goto failed
reg add "%classes%\Corvane.Model\DefaultIcon" /ve /d "!program!,0" /f >nul
if errorlevel 1 goto failed
reg add "%classes%\Corvane.Model\shell\open\command" /ve /d "\"!program!\" \"%%1\"" /f >nul
if errorlevel 1 goto failed
reg add "%classes%\.mdl\OpenWithProgids" /v Corvane.Model /d "" /f >nul
if errorlevel 1 goto failed
echo "Open with" of .mdl files now offers Corvane.
pause
exit /b 0

:failed
echo Windows did not let that be changed.
pause
exit /b 1
