@echo off
rem Takes back what open-models-with-corvane.cmd did, and nothing else.
reg delete "HKCU\Software\Classes\.mdl\OpenWithProgids" /v Corvane.Model /f >nul 2>&1
reg delete "HKCU\Software\Classes\Corvane.Model" /f >nul 2>&1
echo "Open with" of .mdl files no longer offers Corvane.
pause
