"""A small simulated phone that runs the phone's executable: an ARM processor, and what the platform answers."""
