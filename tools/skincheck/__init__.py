"""What tools/check_skin looks at: settings, pictures, outline, layout and contrast of one skin."""
